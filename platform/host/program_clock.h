// The clock as the program sees it. It stands still while the program works, and when the process
// wakes a little late it shows the moment it should have woken at: so what is due at a moment
// happens at that moment, however busy the machine is.
#pragma once

#include <cstdint>

#include "host/moment.h"

namespace host {

class ProgramClock
{
public:
    /// The program catches up with a delay of up to this many milliseconds, one due moment after
    /// the other. After a longer one (the machine slept, a debugger held the process) it goes on
    /// from now.
    static constexpr std::int32_t longestLag = 1000;

    explicit ProgramClock(std::uint32_t now) : ticks_(now) {}

    std::uint32_t ticks() const { return ticks_; }
    bool isAhead(std::uint32_t moment) const { return isBefore(ticks_, moment); }

    /// The process should have woken at `deadline`; it is now `now`, which is not earlier.
    void reachDeadline(std::uint32_t deadline, std::uint32_t now)
    {
        ticks_ = distance(deadline, now) > longestLag ? now : deadline;
    }
    /// Something happened at `moment`, before any deadline. The clock never goes back.
    void reachEvent(std::uint32_t moment)
    {
        if (isAhead(moment)) {
            ticks_ = moment;
        }
    }

private:
    std::uint32_t ticks_;
};

} // namespace host
