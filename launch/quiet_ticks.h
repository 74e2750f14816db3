// Lets the process sleep while nothing moves on the screen.
#pragma once

#include <cstdint>

/// Ticks in which nothing changes may be late, while they are all that the handheld waits for.
/// `tick`: the next one's moment. Returns that, or the moment of one up to `longest` milliseconds
/// later (host::Latest).
std::uint32_t lastQuietTick(std::uint32_t tick, int longest);
