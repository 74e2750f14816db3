// Time in the program: moments are tick counts in milliseconds, which wrap after 2^32, so sums and
// differences of them wrap with them.
#pragma once

#include <cstdint>

#include <windows.h>

/// Every duration of the game, in milliseconds unless said otherwise.
namespace timing {
constexpr int tick = 25;
constexpr int lockDelay = 1000;
constexpr int clear = 200; ///< five looks of 40 ms
constexpr int ending = 3000;
constexpr int firstShiftRepeat = 250;
constexpr int shiftRepeat = 100;
constexpr int softDropStep = 50;
constexpr int ticksPerSecond = 1000 / tick;
constexpr int ultra2MinTicks = 120 * ticksPerSecond;
constexpr int ultra3MinTicks = 180 * ticksPerSecond;

inline std::int32_t now() { return static_cast<std::int32_t>(GetTickCount()); }

/// Milliseconds from one moment to another, negative when the other comes first.
constexpr std::int32_t between(std::int32_t from, std::int32_t to)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(to) -
                                     static_cast<std::uint32_t>(from));
}

/// The moment that many milliseconds after another.
constexpr std::int32_t after(std::int32_t moment, std::int32_t milliseconds)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(moment) +
                                     static_cast<std::uint32_t>(milliseconds));
}
} // namespace timing

/// The window timer that drives the program, whichever screen is shown.
constexpr UINT mainTimer = 1;
