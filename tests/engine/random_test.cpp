// The numbers of chance are those that the game has always been played with.
#include "engine/random.h"

#include <cstdlib>

#include <gtest/gtest.h>

#if defined(__GLIBC__)
TEST(Random, IsTheSequenceOfTheLibraryThatTheGameGrewUpWith)
{
    constexpr int draws = 1'000'000;
    for (unsigned i = 0; i < 100; ++i) {
        // Small seeds, those at the ends, and any: negative as signed numbers too.
        const unsigned seed = i < 20 ? i : i < 40 ? 0U - i : i * 2654435761U;
        std::srand(seed);
        seedRandom(seed);
        int differing = 0;
        for (int draw = 0; draw < draws; ++draw) {
            differing += std::rand() != drawRandom();
        }
        EXPECT_EQ(differing, 0) << "seed " << seed;
    }
}
#endif
