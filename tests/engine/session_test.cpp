// The phases of a game, by the millisecond.
#include <gtest/gtest.h>

#include "engine/played_game.h"

namespace {

using enum TetrominoType;

/// When a piece on the ground locks, the rows are cleared and the next piece comes.
TEST(Session, LocksASecondAfterLandingAndClearsRowsIn200Milliseconds)
{
    PlayedGame game;
    game.fillRow(18, {4, 5});
    game.fillRow(19, {4, 5});
    game.put(O, 3, 18, 0);
    game.tick();
    EXPECT_EQ(game.session.phase, Phase::Landed);
    EXPECT_EQ(game.untilDeadline(), 1000);
    game.ticks(39);
    EXPECT_FALSE(game.filled(4, 18));
    game.tick();
    EXPECT_EQ(game.session.phase, Phase::Clearing);
    EXPECT_EQ(game.session.dirty, dirty::well | dirty::clearAnimation);
    for (const int look : {0, 1, 1, 2, 3, 3, 4}) {
        game.tick({Action::Left, Action::HardDrop, Action::Hold, Action::RotateLeft});
        EXPECT_EQ(game.session.clearFrame, look);
        EXPECT_EQ(game.piece().x, 3);
        EXPECT_EQ(game.session.dirty, dirty::clearAnimation);
    }
    game.tick();
    EXPECT_EQ(game.session.phase, Phase::Falling);
    EXPECT_EQ(game.session.score, 100);
    EXPECT_FALSE(game.filled(0, 19));
    EXPECT_EQ(game.session.dirty, dirty::well | dirty::queue | dirty::score | dirty::lines);
}

TEST(Session, FallsByGravityOfTheLevel)
{
    const int levels[][3] = {{0, 900, 0}, {2, 740, 1}, {5, 500, 2}, {9, 180, 1}, {10, 180, 2}};
    PlayedGame game;
    for (const auto &[level, gravity, backdrop] : levels) {
        game.session.setLevel(level);
        EXPECT_EQ(game.session.gravityMs, gravity);
        EXPECT_EQ(game.session.backdrop, backdrop);
    }
}

TEST(Session, UltraEndsByItsTicksAndRefreshesItsClockEverySecond)
{
    PlayedGame game(GameMode::Ultra2Min);
    int refreshes = 0;
    for (int i = 1; i < 4800; ++i) {
        game.put(O, 3, 0, 0); // keeps on falling
        game.tick();
        refreshes += (game.session.dirty & dirty::time) != 0;
        ASSERT_EQ(game.session.state, GameState::Running) << i;
    }
    EXPECT_EQ(refreshes, 120);
    game.tick();
    EXPECT_EQ(game.session.state, GameState::Ending);
    EXPECT_EQ(game.session.dirty & dirty::well, dirty::well);
}

} // namespace
