// What a tap on the title page hits.
#include "frontend/title_screen.h"

#include <gtest/gtest.h>

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

} // namespace
