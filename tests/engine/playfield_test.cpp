// The well: what is free, what is full, what falls when rows are removed.
#include "engine/playfield.h"

#include <cstdlib>

#include <gtest/gtest.h>

#include "engine/random.h"

namespace {

using enum TetrominoType;

TEST(Playfield, CollidesWithWallsFloorAndBlocksButNotAbove)
{
    Playfield field;
    field.setCell(4, 10, T);
    struct Case
    {
        const char *what;
        TetrominoType type;
        int rotation, x, y;
        bool fits;
    };
    const Case cases[] = {
        {"wholly above the well", I, 0, 0, -5, true},
        {"above, through the left wall", I, 0, -2, -5, false},
        {"above, through the right wall", I, 0, 6, -5, false},
        {"half above", T, 0, 3, -1, true},
        {"at the left wall, its empty column outside", T, 1, -1, 5, true},
        {"through the left wall", T, 0, -1, 5, false},
        {"on the floor", O, 0, 3, 18, true},
        {"through the floor", O, 0, 3, 19, false},
        {"on a block", O, 0, 3, 9, false},
        {"beside a block", O, 0, 4, 9, true},
    };
    for (const Case &c : cases) {
        EXPECT_EQ(field.fits(rotationState(c.type, c.rotation), c.x, c.y), c.fits) << c.what;
    }
}

TEST(Playfield, NeverRemovesTheTopRow)
{
    Playfield field;
    for (const int row : {0, 5, 7}) {
        for (int column = 0; column < wellColumns; ++column) {
            field.setCell(column, row, S);
        }
    }
    EXPECT_EQ(field.markFullRows(), 2);
    EXPECT_EQ(field.removeFullRows(), 2);
    EXPECT_EQ(field.cellAt(0, 2)->occupied, 1);
    EXPECT_EQ(field.removeFullRows(), 0);
}

/// The generator draws the same numbers as std::rand.
TEST(PieceQueue, ShufflesAsEver)
{
    for (const unsigned seed : {0U, 1U, 2U, 1000U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        seedRandom(seed);
        std::srand(seed);
        for (int i = 0; i < 100; ++i) {
            EXPECT_EQ(drawRandom(), std::rand()) << seed;
        }
    }
}

} // namespace
