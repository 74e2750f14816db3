// What a tap on the title page hits, and how its pages change.
#include "frontend/title_screen.h"

#include <gtest/gtest.h>

#include "render/graphics.h"
#include "resources/program_resources.h"
#include "support/fake_host.h"
#include "support/pixel.h"

namespace {

TEST(TitleScreen, KnowsWhatATapHits)
{
    using namespace TitleHit;
    const int cases[][3] = {
        {118, 120, ModeBase},     {119, 120, None},          {120, 120, ModeBase + 1},
        {224, 120, None},         {15, 135, ModeBase + 2},   {223, 153, ModeBase + 3},
        {50, 134, None},          {34, 165, LevelBase},      {35, 170, None},
        {36, 183, LevelBase + 1}, {223, 170, LevelBase + 9}, {224, 170, None},
        {50, 184, None},          {70, 200, Play},           {170, 200, None},
        {169, 229, Play},         {100, 230, None},          {100, 20, None},
    };
    TitleScreen screen{};
    for (const auto &[x, y, hit] : cases) {
        EXPECT_EQ(screen.hitTest(x, y), hit) << x << ", " << y;
    }
    screen.page = TitlePage::HighScores;
    EXPECT_EQ(screen.hitTest(118, 120), LeaveHighScores);
}

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
    EXPECT_EQ(getPixel(windowDC, 205, 166), RGB(255, 255, 255)); // level 9: white
    EXPECT_EQ(getPixel(windowDC, 183, 165), RGB(255, 255, 255)); // level 8: white border,
    EXPECT_EQ(getPixel(windowDC, 185, 167), RGB(0, 0, 0));       // black inside

    handheld.host.clock += 10001;
    screen.tick(HWND{});
    EXPECT_EQ(screen.page, TitlePage::HighScores);
    EXPECT_NE(getPixel(windowDC, 205, 166), RGB(255, 255, 255));
    screen.destroy(HWND{});
    deleteSurface(screenSurface);
    ReleaseDC(HWND{}, windowDC);
}

} // namespace
