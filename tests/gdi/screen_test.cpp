// Regions, and drawing on the screen inside one.
#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include "gdi/region.h"
#include "picture.h"

namespace {

class Area : public gdi::ScreenArea
{
public:
    /// A window at `place`, with another in front of it at `hole`.
    Area(const RECT &place, const RECT &hole) : corner(place), seen(place) { seen.subtract(hole); }

    POINT origin() const override { return {corner.left, corner.top}; }
    SIZE size() const override { return {corner.right - corner.left, corner.bottom - corner.top}; }
    const gdi::Region &visible() const override { return seen; }

    RECT corner;
    gdi::Region seen;
};

/// Of a screen that is 20 pixels wide.
std::uint16_t at(int x, int y)
{
    return gdi::screen().pixels.at(static_cast<std::size_t>(y * 20 + x));
}

bool contains(const gdi::Region &region, int x, int y)
{
    return std::ranges::any_of(region.rects(), [=](const RECT &rect) {
        return PtInRect(&rect, {x, y}) != FALSE;
    });
}

struct Screen : testing::Test
{
    Screen()
    {
        gdi::resizeScreen(20, 20);
        gdi::screen().changed = {};
    }
    /// Exactly the pixels in both regions are not black.
    static void expectDrawn(const gdi::Region &a, const gdi::Region &b)
    {
        for (int y = 0; y < 20; ++y) {
            for (int x = 0; x < 20; ++x) {
                ASSERT_EQ(at(x, y) != 0, contains(a, x, y) && contains(b, x, y)) << x << ' ' << y;
            }
        }
    }
};

} // namespace

TEST(Region, AgreesWithASetOfPixels)
{
    constexpr int side = 12;
    std::mt19937 random(1);
    for (int round = 0; round < 300; ++round) {
        gdi::Region region;
        bool expected[side][side] = {};
        for (int step = 0; step < 6; ++step) {
            const auto pick = [&] { return static_cast<int>(random() % (side + 1)); };
            const RECT rect{pick(), pick(), pick(), pick()};
            const unsigned operation = random() % 4;
            operation == 0   ? region.subtract(rect)
            : operation == 1 ? region.intersect(gdi::Region(RECT{0, 0, rect.right, side}))
                             : region.add(rect);
            for (int y = 0; y < side; ++y) {
                for (int x = 0; x < side; ++x) {
                    const bool in = PtInRect(&rect, {x, y}) != FALSE;
                    bool &pixel = expected[y][x];
                    pixel = operation == 0   ? pixel && !in
                            : operation == 1 ? pixel && x < rect.right
                                             : pixel || in;
                }
            }
        }
        int area = 0;
        for (const RECT &rect : region.rects()) {
            area += (rect.right - rect.left) * (rect.bottom - rect.top);
        }
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x) {
                ASSERT_EQ(contains(region, x, y), expected[y][x]) << round;
                area -= expected[y][x] ? 1 : 0;
            }
        }
        ASSERT_EQ(area, 0) << "rectangles overlap";
    }
}

TEST_F(Screen, DrawingStaysInsideTheVisibleRegionAndReportsWhatChanged)
{
    Area area({5, 5, 15, 15}, {8, 8, 12, 12});
    const HDC dc = gdi::openScreenDC(area, {});
    const RECT all{-50, -50, 50, 50};
    FillRect(dc, &all, HBRUSH{GetStockObject(WHITE_BRUSH)});
    expectDrawn(area.seen, area.seen);
    EXPECT_EQ(gdi::screen().changed, area.corner);

    // The context follows the window; (0, 0) is its corner.
    area.corner = {1, 2, 6, 6};
    area.seen = gdi::Region(area.corner);
    gdi::screen().changed = {};
    setPixel(dc, 0, 0, red);
    EXPECT_EQ(at(1, 2), 0xF800);
    EXPECT_EQ(getPixel(dc, 0, 0), red);
    EXPECT_EQ(gdi::screen().changed, (RECT{1, 2, 2, 3}));
    gdi::closeScreenDC(dc);
}

TEST_F(Screen, AContextForAPartDrawsThereOnly)
{
    const Area area({0, 0, 20, 20}, {4, 0, 6, 20});
    gdi::Region invalid(RECT{2, 2, 10, 3});
    invalid.add(RECT{2, 5, 10, 6});
    const HDC dc = gdi::openScreenDC(area, invalid);
    const Picture source(20, 20);
    source.fill({0, 0, 20, 20}, white);
    BitBlt(dc, 0, 0, 20, 20, source.dc, 0, 0, SRCCOPY);
    expectDrawn(area.seen, invalid);
    // No bitmap can be selected in a context on the screen, and DeleteDC refuses one.
    EXPECT_FALSE(SelectObject(dc, CreateCompatibleBitmap(dc, 1, 1)));
    EXPECT_FALSE(DeleteDC(dc));
    gdi::reset();
    EXPECT_EQ(at(2, 2), 0);
}
