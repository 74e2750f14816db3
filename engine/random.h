// Chance, from a generator of the game's own. The C library's is shared with whatever else is in
// the process: a sound library that draws from it too would deal other pieces than a replay does.
#pragma once

#include <cstdint>

/// Begins the sequence that belongs to `seed`. Until then it is that of 1.
void seedRandom(std::uint32_t seed);

/// The next number of the sequence, 0 to 2^31 - 1.
std::uint32_t drawRandom();
