// What has happened and what is due, in the order of time: the wait that every host with a real
// clock has. Moments are milliseconds of the host's clock, whose count wraps.
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

    /// The moment at which the program is.
    std::uint32_t ticks() const { return clock_.ticks(); }

    void add(const Event &event, std::uint32_t moment) { events_.push_back({event, moment}); }

    /// Host::wait. `now()` tells the host's clock; `sleep()` returns when an event was added or the
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

    /// Events and deadlines come in the order of their moments, even when both have passed.
    bool hasEventBefore(std::optional<std::uint32_t> deadline) const
    {
        return !events_.empty() && (!deadline || isBefore(events_.front().moment, *deadline));
    }

    /// A program that does not sleep stays where it is.
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
