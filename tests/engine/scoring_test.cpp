// Points, and how levels follow from rows.
#include <gtest/gtest.h>

#include "engine/played_game.h"

namespace {

TEST(Scoring, FourRowsInARowAreWorthMore)
{
    PlayedGame game;
    const std::pair<int, int> clears[] = {{4, 1200}, {4, 1800}, {1, 40},  {4, 1200},
                                          {2, 100},  {3, 300},  {4, 1200}};
    for (const auto &[rows, points] : clears) {
        EXPECT_EQ(game.session.clearPoints(rows), points);
    }
    game.session.level = 7;
    EXPECT_EQ(game.session.clearPoints(4), 1800 * 8);
}

TEST(Scoring, LevelsLastLongerAndLonger)
{
    PlayedGame game;
    const int fromZero[] = {10, 30, 60, 100, 150, 210, 280, 360, 450, 550, 660};
    for (int level = 0; level < 11; ++level) {
        EXPECT_EQ(game.session.levelTarget(level), fromZero[level]);
    }
    PlayedGame fast(GameMode::Marathon, 5);
    EXPECT_EQ(fast.session.levelTarget(4), 0);
    EXPECT_EQ(fast.session.levelTarget(5), 60);
    EXPECT_EQ(fast.session.levelTarget(8), 300);
}

TEST(Scoring, AMarathonRisesAtTheRateOfTheLevelBefore)
{
    PlayedGame game;
    game.session.lines = 9;
    game.session.dirty = 0;
    game.session.rowsCleared(4);
    EXPECT_EQ(game.session.score, 1200);
    EXPECT_EQ(game.session.lines, 13);
    EXPECT_EQ(game.session.level, 1);
    EXPECT_EQ(game.session.gravityMs, 820);
    EXPECT_EQ(game.session.dirty, dirty::score | dirty::lines | dirty::level);
    game.session.lines = 29;
    game.session.rowsCleared(1);
    EXPECT_EQ(game.session.level, 2);
    EXPECT_EQ(game.session.backdrop, 1);
    EXPECT_EQ(game.session.dirty, dirty::everything);
}

TEST(Scoring, FortyLinesEndAtTheTarget)
{
    PlayedGame game(GameMode::FortyLines, 3);
    game.session.lines = 4;
    for (const int row : {16, 17, 18, 19}) {
        game.fillRow(row, {4});
    }
    game.put(TetrominoType::I, 2, 5, 1);
    game.ticks(10, {Action::SoftDrop}); // five rows in 250 ms, for a point each
    game.tick({Action::HardDrop});      // and five for two
    game.ticks(9);
    EXPECT_EQ(game.session.state, GameState::Ending);
    EXPECT_EQ(game.session.lines, 0);
    EXPECT_EQ(game.session.score, 5 + 10 + 4800);
    EXPECT_EQ(game.untilDeadline(), 3000);
}

} // namespace
