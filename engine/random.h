// Chance: the sequence of numbers that the piece supply draws from. It is written out here, and the
// same on every machine, so that a game recorded anywhere plays everywhere.
#pragma once

/// Begins the sequence that belongs to `seed`. Until the first call it is that of seed 1.
void seedRandom(unsigned seed);

/// The next number of the sequence, 0 to 2^31 - 1.
[[nodiscard]] int drawRandom();
