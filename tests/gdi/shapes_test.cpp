// Rectangles, pixels and the clip rectangle.
#include <gtest/gtest.h>

#include "picture.h"

TEST(Shapes, RectangleHasItsBorderInside)
{
    const Picture picture(7, 6);
    SelectObject(picture.dc, GetStockObject(WHITE_PEN));
    SelectObject(picture.dc, GetStockObject(GRAY_BRUSH));
    Rectangle(picture.dc, 1, 1, 6, 5);
    EXPECT_EQ(picture.rows(),
              (Rows{".......", ".#####.", ".#ggg#.", ".#ggg#.", ".#####.", "......."}));
    SelectObject(picture.dc, GetStockObject(NULL_BRUSH));
    Rectangle(picture.dc, 3, -1, 9, 3);
    EXPECT_EQ(picture.rows(),
              (Rows{"...#...", ".#####.", ".#g####", ".#ggg#.", ".#####.", "......."}));
}

TEST(Shapes, PixelsShowTheDisplaysColours)
{
    const Picture picture(2, 1);
    EXPECT_EQ(SetPixel(picture.dc, 0, 0, RGB(255, 255, 7)), RGB(255, 255, 0));
    EXPECT_EQ(SetPixel(picture.dc, 1, 0, RGB(74, 85, 222)), RGB(74, 85, 222));
    EXPECT_EQ(GetPixel(picture.dc, 1, 0), RGB(74, 85, 222));
    EXPECT_EQ(GetPixel(picture.dc, 2, 0), CLR_INVALID);
    EXPECT_EQ(GetPixel(picture.dc, 0, -1), CLR_INVALID);
}

TEST(Shapes, TheClipRectangleOnlyShrinksUntilItIsRestored)
{
    const Picture picture(6, 1);
    SaveDC(picture.dc);
    IntersectClipRect(picture.dc, 1, 0, 4, 1);
    IntersectClipRect(picture.dc, 2, -5, 9, 9);
    picture.fill({0, 0, 6, 1}, white);
    EXPECT_EQ(picture.rows(), Rows{"..##.."});
    RestoreDC(picture.dc, -1);
    picture.fill({0, 0, 6, 1}, red);
    EXPECT_EQ(picture.rows(), Rows{"rrrrrr"});
}
