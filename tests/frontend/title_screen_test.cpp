// What a tap on the title page hits, and how its pages take turns.
#include "frontend/title_screen.h"

#include <gtest/gtest.h>

#include "gdi/screen.h"
#include "render/graphics.h"
#include "resources/program_resources.h"
#include "support/fake_host.h"

namespace {

TEST(TitleScreen, KnowsWhatATapHits)
{
    const int cases[][3] = {
        {118, 120, 10}, {119, 120, 0},
        {120, 120, 11}, {224, 120, 0},
        {15, 135, 12},  {223, 153, 13},
        {50, 134, 0},   {34, 165, 20},
        {35, 170, 0},   {36, 183, 21},
        {223, 170, 29}, {224, 170, 0},
        {50, 184, 0},   {70, 200, TitleHit::Play},
        {170, 200, 0},  {169, 229, TitleHit::Play},
        {100, 230, 0},  {100, 20, 0},
    };
    TitleScreen screen{};
    for (const auto &[x, y, hit] : cases) {
        EXPECT_EQ(screen.hitTest(x, y), hit) << x << ", " << y;
    }
    screen.page = TitlePage::HighScores;
    EXPECT_EQ(screen.hitTest(118, 120), TitleHit::LeaveHighScores);
}

/// The pages on a display without a window.
TEST(TitleScreen, TakesTurnsAndDrawsTheSelection)
{
    SwitchedOn handheld(programResources());
    windowDC = GetDC(HWND{});
    screenSurface = new Surface(windowDC, screenWidth, screenHeight);
    TitleScreen screen{};
    HighScoreTable table{};
    screen.create(HWND{});
    screen.selectedLevel = 9;
    screen.start(HWND{}, &table);
    EXPECT_EQ(screen.table.get(), &table);
    EXPECT_EQ(GetPixel(windowDC, 205, 166), RGB(255, 255, 255)); // level 9: white
    EXPECT_EQ(GetPixel(windowDC, 183, 165), RGB(255, 255, 255)); // level 8: white border,
    EXPECT_EQ(GetPixel(windowDC, 185, 167), RGB(0, 0, 0));       // black inside
    EXPECT_EQ(GetPixel(windowDC, 118, 133), RGB(255, 255, 255)); // mode 0

    handheld.host.clock += 10001;
    screen.tick(HWND{});
    EXPECT_EQ(screen.page, TitlePage::HighScores);
    EXPECT_NE(GetPixel(windowDC, 205, 166), RGB(255, 255, 255));
    screen.destroy(HWND{});
    deleteSurface(screenSurface);
    ReleaseDC(HWND{}, windowDC);
    EXPECT_TRUE(gdi::liveObjects().empty());
}

} // namespace
