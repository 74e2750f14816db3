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

TEST(Shapes, ColoursAreTheDisplays)
{
    const Picture picture(2, 1);
    picture.fill({0, 0, 1, 1}, RGB(255, 255, 7));
    picture.fill({1, 0, 2, 1}, RGB(74, 85, 222));
    EXPECT_EQ(getPixel(picture.dc, 0, 0), RGB(255, 255, 0));
    EXPECT_EQ(getPixel(picture.dc, 1, 0), RGB(74, 85, 222));
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
