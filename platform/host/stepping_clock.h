// A clock of 32 bits that never takes a long step at once: a machine that wakes after a month, or
// whose clock is set, would else seem to have gone back in time (moment.h).
#pragma once

#include <algorithm>
#include <cstdint>

namespace host {

class SteppingClock
{
public:
    static constexpr std::uint64_t longestStep = 24 * 60 * 60 * 1000;

    /// Milliseconds of the machine's own clock, which does not go back.
    explicit SteppingClock(std::uint64_t machine) : machine_(machine), ticks_(machine) {}

    std::uint32_t at(std::uint64_t machine)
    {
        ticks_ += std::min(machine - machine_, longestStep);
        machine_ = machine;
        return static_cast<std::uint32_t>(ticks_);
    }

private:
    std::uint64_t machine_;
    std::uint64_t ticks_;
};

} // namespace host
