// The clock as the program sees it. It stands still while the program works, and when the process
// wakes a little late it shows the moment it was to wake at: so what is due at a moment happens at
// that moment, whatever the machine was busy with.
#pragma once

#include <cstdint>

#include "host/moment.h"

namespace host {

class ProgramClock
{
public:
    /// Being late by up to this many milliseconds is made up for, one due moment after the other.
    /// Later than that (the machine slept, a debugger held the process) the time in between is
    /// given up.
    static constexpr std::uint32_t longestLag = 1000;

    explicit ProgramClock(std::uint32_t now) : ticks_(now) {}

    std::uint32_t ticks() const { return ticks_; }
    bool isAhead(std::uint32_t moment) const { return isBefore(ticks_, moment); }

    /// The process was to wake at `deadline`, and it is now `now`.
    void reachDeadline(std::uint32_t deadline, std::uint32_t now)
    {
        ticks_ = now - deadline > longestLag ? now : deadline;
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
