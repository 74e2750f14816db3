// Gives the program its events and deadlines in the order of time: the wait of every host with a
// real clock. Moments are milliseconds of the host's clock, whose count wraps.
//
// The program's clock stands still while the program works, and when the process wakes a little
// late it shows the moment it should have woken at: so what is due at a moment happens at that
// moment, however busy the machine is.
//
// Waking a process, or a page, costs much more than what a program does in a tick. So the process
// may sleep through moments that do not matter; what was due meanwhile happens afterwards, each at
// its own moment.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <utility>

#include "host/host.h"
#include "host/moment.h"

namespace host {

/// The program is to wake at `moment`. Returns until when it may be late, and catch up, without
/// anyone noticing, if nothing happens to the handheld.
using Latest = std::function<std::uint32_t(std::uint32_t moment)>;

class Timeline
{
public:
    /// The program catches up with a delay of up to this many milliseconds, one due moment after
    /// the other. After a longer one (the machine slept) it goes on from now.
    static constexpr std::int32_t longestLag = 1000;

    /// Without `latest` the process wakes for each moment.
    explicit Timeline(std::uint32_t now, Latest latest = nullptr)
        : latest_(std::move(latest)), ticks_(now)
    {}

    /// The program's clock. It never goes back.
    std::uint32_t ticks() const { return ticks_; }

    void add(const Event &event, std::uint32_t moment) { events_.push_back({event, moment}); }

    /// Host::wait. `now()` reads the host's clock; `sleep(until)` returns when an event was added
    /// or that moment has come, or sooner.
    template <class Now, class Sleep>
    std::optional<Event> wait(std::optional<std::uint32_t> deadline, Now now, Sleep sleep)
    {
        const bool sleeps = !deadline || isBefore(ticks_, *deadline);
        for (;;) {
            if (hasEventBefore(sleeps ? deadline : std::nullopt)) {
                alert_ = true;
                return takeEvent(sleeps);
            }
            if (!sleeps) {
                return std::nullopt;
            }
            if (const std::uint32_t moment = now(); deadline && !isBefore(moment, *deadline)) {
                reachDeadline(*deadline, moment);
                return std::nullopt;
            }
            // The program answers an event with its next moment, which must not be late.
            const auto until = deadline && latest_ && !alert_ ? latest_(*deadline) : deadline;
            planned_ = until.value_or(ticks_);
            sleep(until);
        }
    }

private:
    struct Dated
    {
        Event event;
        std::uint32_t moment;
    };

    /// The process should have woken by the deadline, or when it had planned to; it is `now`.
    void reachDeadline(std::uint32_t deadline, std::uint32_t now)
    {
        const std::uint32_t meant = isBefore(deadline, planned_) ? planned_ : deadline;
        ticks_ = distance(meant, now) > longestLag ? now : deadline;
        alert_ = false;
    }

    /// Events and deadlines keep their order even when both have passed.
    bool hasEventBefore(std::optional<std::uint32_t> deadline) const
    {
        return !events_.empty() && (!deadline || isBefore(events_.front().moment, *deadline));
    }

    /// The clock moves on to the event only when the program sleeps.
    Event takeEvent(bool movesOn)
    {
        const Dated first = events_.front();
        events_.pop_front();
        if (movesOn && isBefore(ticks_, first.moment)) {
            ticks_ = first.moment;
        }
        return first.event;
    }

    Latest latest_;
    bool alert_ = true; ///< an event has come since the program last woke by the clock
    std::uint32_t ticks_;
    std::uint32_t planned_ = ticks_; ///< when the process would wake from its last sleep
    std::deque<Dated> events_;       ///< not yet taken by the program
};

} // namespace host
