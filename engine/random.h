// The sequences of std::rand, with a state of their own where the library allows it: a sound
// library that draws numbers too would otherwise change which pieces a replayed game gets.
#pragma once

/// Starts the sequence of `seed`. Before that it is the sequence of 1.
void seedRandom(unsigned seed);

/// The next number of the sequence, 0 to RAND_MAX.
[[nodiscard]] int drawRandom();
