// Objects, handles and selections.
#include <gtest/gtest.h>

#include <tuple>

#include "picture.h"

TEST(Objects, SelectObjectReturnsTheObjectSelectedBefore)
{
    const HDC dc = CreateCompatibleDC({});
    const HDC other = CreateCompatibleDC({});
    const HBITMAP first = CreateCompatibleBitmap(dc, 4, 4);
    const HBITMAP second = CreateCompatibleBitmap(dc, 4, 4);
    const HGDIOBJ initial = SelectObject(dc, first);
    EXPECT_TRUE(initial);
    EXPECT_EQ(SelectObject(dc, second), first);
    EXPECT_EQ(SelectObject(dc, GetStockObject(BLACK_BRUSH)), GetStockObject(WHITE_BRUSH));
    EXPECT_EQ(SelectObject(dc, GetStockObject(WHITE_PEN)), GetStockObject(BLACK_PEN));

    // A bitmap can be in one context only; the failed attempt leaves both as they were.
    EXPECT_FALSE(SelectObject(other, second));
    EXPECT_EQ(SelectObject(dc, second), second);
    EXPECT_EQ(SelectObject(dc, initial), second);
    EXPECT_EQ(SelectObject(other, second), initial);

    EXPECT_TRUE(DeleteDC(other)); // no longer selects the bitmap
    EXPECT_TRUE(DeleteDC(dc));
    EXPECT_TRUE(DeleteObject(first));
    EXPECT_TRUE(DeleteObject(second));
    EXPECT_TRUE(gdi::liveObjects().empty());
}

TEST(Objects, DeletesOnlyWhatIsFree)
{
    const HDC dc = CreateCompatibleDC({});
    const HBRUSH brush = CreateSolidBrush(red);
    const HGDIOBJ initial = SelectObject(dc, brush);
    EXPECT_FALSE(DeleteObject(brush));
    EXPECT_FALSE(DeleteObject(initial));
    EXPECT_FALSE(DeleteObject(HGDIOBJ{dc.value}));

    // An object in a saved state is still in use.
    ASSERT_EQ(SaveDC(dc), 1);
    SelectObject(dc, initial);
    EXPECT_FALSE(DeleteObject(brush));
    EXPECT_FALSE(RestoreDC(dc, 2));
    EXPECT_TRUE(RestoreDC(dc, -1));
    EXPECT_EQ(SelectObject(dc, initial), brush);
    EXPECT_TRUE(DeleteObject(brush));

    // The handle stays invalid, also when another object uses the slot.
    EXPECT_FALSE(DeleteObject(brush));
    const HBRUSH next = CreateSolidBrush(red);
    EXPECT_FALSE(SelectObject(dc, brush));
    EXPECT_TRUE(DeleteDC(dc));
    EXPECT_FALSE(DeleteDC(dc));
    EXPECT_TRUE(DeleteObject(next));
}

TEST(Objects, AHandleNeverNamesALaterObject)
{
    const HBRUSH old = CreateSolidBrush(red);
    DeleteObject(old);
    for (int i = 0; i < 200'000; ++i) { // more than one slot has generations
        const HBRUSH brush = CreateSolidBrush(red);
        ASSERT_TRUE(brush);
        ASSERT_NE(brush, old);
        ASSERT_TRUE(DeleteObject(brush));
    }
}

TEST(Objects, LiveObjectsAreNamedAndResetForgetsThem)
{
    LOGFONTW description{};
    description.lfHeight = 16;
    description.lfWeight = FW_BOLD;
    CreateFontIndirectW(&description);
    SelectObject(CreateCompatibleDC({}), CreateCompatibleBitmap({}, 240, 268));
    std::vector<std::string> lines = gdi::liveObjects();
    std::sort(lines.begin(), lines.end());
    EXPECT_EQ(lines, (Rows{"bitmap 240x268", "dc memory", "font 16 bold"}));
    gdi::reset();
    EXPECT_TRUE(gdi::liveObjects().empty());
    EXPECT_TRUE(GetStockObject(SYSTEM_FONT));
}

TEST(Objects, RefusesWhatItCannotMake)
{
    EXPECT_FALSE(CreateCompatibleBitmap({}, 0, 5) || CreateCompatibleBitmap({}, 5, -1) ||
                 CreateCompatibleBitmap({}, 4097, 1) || GetStockObject(4711));
    BITMAP description{};
    const Picture picture(77, 3);
    EXPECT_EQ(GetObjectW(picture.bitmap, 23, &description), 0);
    EXPECT_EQ(GetObjectW(picture.bitmap, sizeof description, &description), 24);
    EXPECT_EQ(std::tuple(description.bmWidth, description.bmWidthBytes, description.bmBitsPixel),
              std::tuple(77, 154, 16));
}
