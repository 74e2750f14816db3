// Chance: the sequences of std::rand, kept apart from the rest of the process where the library can
// do that. A sound library that draws numbers too would otherwise deal other pieces than a replay
// of the game.
#pragma once

/// Begins the sequence that belongs to `seed`. Until then it is that of 1.
void seedRandom(unsigned seed);

/// The next number of the sequence, 0 to RAND_MAX.
int drawRandom();
