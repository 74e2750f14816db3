// Copying between device contexts.
#include <gtest/gtest.h>

#include "picture.h"

TEST(Blit, ClipsToBothSides)
{
    const Picture source(4, 4);
    source.fill({0, 0, 4, 4}, white);
    const struct
    {
        int x, y, width, height, sourceX, sourceY;
        RECT expected; // where the copy of a white picture must be
    } cases[] = {
        {2, 3, 4, 4, 0, 0, {2, 3, 6, 7}},     {-1, -2, 4, 4, 0, 0, {0, 0, 3, 2}},
        {8, 9, 4, 4, 0, 0, {8, 9, 10, 10}},   {2, 2, 4, 4, -1, -2, {3, 4, 6, 6}},
        {2, 2, 4, 4, 3, 2, {2, 2, 3, 4}},     {-3, -3, 100, 100, -4, -4, {1, 1, 5, 5}},
        {10, 0, 4, 4, 0, 0, {10, 10, 0, 0}},  {2, 2, 0, 4, 0, 0, {10, 10, 0, 0}},
        {2, 2, -2, -2, 0, 0, {10, 10, 0, 0}}, {2, 2, 4, 4, 4, 0, {10, 10, 0, 0}},
    };
    for (const auto &c : cases) {
        const Picture target(10, 10);
        EXPECT_TRUE(BitBlt(target.dc, c.x, c.y, c.width, c.height, source.dc, c.sourceX, c.sourceY,
                           SRCCOPY));
        EXPECT_EQ(target.bounds(white), c.expected) << c.x << ' ' << c.y << ' ' << c.sourceX;
    }
    EXPECT_FALSE(BitBlt(source.dc, 1 << 30, 0, 1 << 30, 4, source.dc, 0, 0, SRCCOPY));
}

TEST(Blit, OverlappingPartsMoveWhole)
{
    // A diagonal keeps its shape. The whole width goes as one block, less than that row by row.
    for (const auto &[dx, dy] :
         {POINT{1, 2}, POINT{-1, -2}, POINT{0, 2}, POINT{0, -2}, POINT{2, 0}}) {
        const Picture picture(8, 8);
        for (int i = 0; i < 8; ++i) {
            setPixel(picture.dc, i, i, white);
        }
        BitBlt(picture.dc, dx, dy, 8, 8, picture.dc, 0, 0, SRCCOPY);
        for (int i = 2; i < 6; ++i) {
            EXPECT_EQ(getPixel(picture.dc, i + dx, i + dy), white) << dx << ' ' << dy << ' ' << i;
        }
        EXPECT_EQ(getPixel(picture.dc, 3 + dx, 4 + dy), black);
    }
}

TEST(Blit, TransparentImageLeavesTheColourOut)
{
    // 11 wide, as tiles are: a red frame around black.
    const Picture tile(11, 11);
    tile.fill({0, 0, 11, 11}, red);
    tile.fill({1, 1, 10, 10}, black);
    const Picture target(13, 13);
    target.fill({0, 0, 13, 13}, blue);
    EXPECT_TRUE(TransparentImage(target.dc, 1, 1, 11, 11, tile.dc, 0, 0, 11, 11, black));
    EXPECT_EQ(target.count(red), 40);
    EXPECT_EQ(target.count(blue), 13 * 13 - 40);
    EXPECT_EQ(target.bounds(red), (RECT{1, 1, 12, 12}));

    target.fill({0, 0, 13, 13}, blue);
    EXPECT_TRUE(TransparentImage(target.dc, -5, 8, 11, 11, tile.dc, 0, 0, 11, 11, black));
    EXPECT_EQ(target.rows()[8], "rrrrrrbbbbbbb");
    EXPECT_EQ(target.rows()[9], "bbbbbrbbbbbbb");
    EXPECT_FALSE(TransparentImage(target.dc, 0, 0, 22, 22, tile.dc, 0, 0, 11, 11, black));
}
