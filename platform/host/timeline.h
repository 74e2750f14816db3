// Gives the program its events and deadlines in the order of time: the wait of every host with a
// real clock. Moments are milliseconds of the host's clock, whose count wraps.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>

#include "host/host.h"
#include "host/program_clock.h"

namespace host {

class Timeline
{
public:
    explicit Timeline(std::uint32_t now) : clock_(now) {}

    /// The program's clock.
    std::uint32_t ticks() const { return clock_.ticks(); }

    void add(const Event &event, std::uint32_t moment) { events_.push_back({event, moment}); }

    /// Host::wait. `now()` reads the host's clock; `sleep()` returns when an event was added or the
    /// deadline has come, or sooner.
    template <class Now, class Sleep>
    std::optional<Event> wait(std::optional<std::uint32_t> deadline, Now now, Sleep sleep)
    {
        const bool sleeps = !deadline || clock_.isAhead(*deadline);
        for (;; sleep()) {
            if (hasEventBefore(sleeps ? deadline : std::nullopt)) {
                return takeEvent(sleeps);
            }
            if (!sleeps) {
                return std::nullopt;
            }
            if (const std::uint32_t moment = now(); deadline && !isBefore(moment, *deadline)) {
                clock_.reachDeadline(*deadline, moment);
                return std::nullopt;
            }
        }
    }

private:
    struct Dated
    {
        Event event;
        std::uint32_t moment;
    };

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
        if (movesOn) {
            clock_.reachEvent(first.moment);
        }
        return first.event;
    }

    ProgramClock clock_;
    std::deque<Dated> events_; ///< not yet taken by the program
};

} // namespace host
