#include <cstring>

#include <gtest/gtest.h>

#include "engine/played_game.h"

namespace {

using enum TetrominoType;

/// The marks at which a held piece on the ground, a clear and a spawn happen.
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
    EXPECT_EQ(game.session.soundEvent, SoundEvent::RowsComplete);
    EXPECT_EQ(game.session.clearFrame, -1);
    EXPECT_EQ(game.session.dirty, dirty::well | dirty::clearAnimation);

    // Nothing the player does moves what is being cleared.
    const int looks[] = {0, 1, 1, 2, 3, 3, 4};
    for (const int look : looks) {
        game.tick({Action::Left, Action::HardDrop, Action::Hold, Action::RotateLeft});
        EXPECT_EQ(game.session.clearFrame, look);
        EXPECT_EQ(game.piece().x, 3);
    }
    EXPECT_EQ(game.session.holdType, -1);
    const TetrominoType next = game.piece().queue.entries[0];
    game.tick();
    EXPECT_EQ(game.session.phase, Phase::Falling);
    EXPECT_EQ(game.piece().type, next);
    EXPECT_EQ(game.session.score, 100);
    EXPECT_EQ(game.session.lines, 2);
    EXPECT_FALSE(game.filled(0, 19));
    EXPECT_EQ(game.session.soundEvent, SoundEvent::None);
}

TEST(Session, FallsByGravityOfTheLevel)
{
    struct Case
    {
        int level;
        int gravity;
        int backdrop;
    };
    for (const Case &c : {Case{0, 900, 0}, Case{2, 740, 1}, Case{5, 500, 2}, Case{9, 180, 1}}) {
        PlayedGame game(GameMode::Marathon, c.level);
        EXPECT_EQ(game.session.gravityMs, c.gravity);
        EXPECT_EQ(game.session.backdrop, c.backdrop);
        const int startRow = game.piece().y;
        const int ticksToStep = (c.gravity + 24) / 25;
        game.ticks(ticksToStep - 1);
        EXPECT_EQ(game.piece().y, startRow);
        game.tick();
        EXPECT_EQ(game.piece().y, startRow + 1);
    }
    PlayedGame game(GameMode::Marathon, 9);
    game.session.setLevel(10);
    EXPECT_EQ(game.session.gravityMs, 180); // it gets no faster
}

TEST(Session, TakesOffAgainWhenALandedPieceCanFall)
{
    PlayedGame game;
    game.session.playfield.setCell(3, 19, J);
    game.session.playfield.setCell(4, 19, J);
    game.put(O, 3, 17, 0); // in columns 4 and 5
    game.tick();
    EXPECT_EQ(game.session.phase, Phase::Landed);
    game.tick({Action::Right});
    EXPECT_EQ(game.session.phase, Phase::Falling);
    EXPECT_EQ(game.untilDeadline(), game.session.gravityMs);
}

TEST(Session, EndsWhenTheNextPieceDoesNotFit)
{
    PlayedGame game;
    for (int row = 0; row < 19; ++row) {
        game.fillRow(row, {0});
    }
    game.put(O, 3, -2, 0); // locks above the top, which alone ends nothing
    const TetrominoType next = game.piece().queue.entries[0];
    game.ticks(2, {Action::HardDrop});
    EXPECT_EQ(game.piece().type, next);
    EXPECT_EQ(game.session.state, GameState::Ending);
    EXPECT_EQ(game.session.soundEvent, SoundEvent::Lock);
    EXPECT_EQ(game.untilDeadline(), 3000);
}

TEST(Session, UltraEndsByItsTicksAndRefreshesItsClockEverySecond)
{
    PlayedGame game(GameMode::Ultra2Min);
    game.tick();
    EXPECT_TRUE(game.session.dirty & dirty::time);
    int refreshes = 1;
    for (int i = 2; i < 4800; ++i) {
        game.put(O, 3, 0, 0); // keeps on falling
        game.tick();
        refreshes += (game.session.dirty & dirty::time) != 0;
        ASSERT_EQ(game.session.state, GameState::Running) << i;
    }
    EXPECT_EQ(refreshes, 120);
    game.tick();
    EXPECT_EQ(game.session.state, GameState::Ending);
    EXPECT_EQ(game.session.timeLeft, 0);
}

TEST(Session, PausingTurnsEveryWaitIntoAGravityInterval)
{
    PlayedGame game;
    game.put(O, 3, 18, 0);
    game.ticks(30, {Action::Left});
    ASSERT_EQ(game.session.phase, Phase::Landed);
    game.session.pause();
    EXPECT_EQ(game.session.state, GameState::Paused);
    EXPECT_EQ(game.session.dirty, dirty::everything);
    EXPECT_EQ(game.untilDeadline(), 900);
    EXPECT_EQ(game.session.shiftRepeating, 0);
    EXPECT_EQ(game.session.shiftNext, 0);
}

TEST(Session, PlaysTheSameAcrossTheWrapOfTheTickCount)
{
    const auto play = [](std::uint32_t clock) {
        PlayedGame game(GameMode::Marathon, 0, clock);
        for (int i = 0; i < 400; ++i) {
            game.tick({i % 7 < 5 ? Action::Left : Action::Right,
                       i % 90 < 30 ? Action::SoftDrop : Action::Pause,
                       i % 50 == 0 ? Action::HardDrop : Action::Pause});
        }
        game.session.now = game.session.deadline = 0;
        game.session.shiftNext = game.session.softDropNext = 0;
        return game.session;
    };
    const std::uint32_t clocks[] = {0xFFFFFFFFU - 5000, 0x7FFFFFFFU - 5000, 0xFFFFFFFFU};
    const GameSession expected = play(1000);
    for (const std::uint32_t clock : clocks) {
        const GameSession session = play(clock);
        EXPECT_EQ(std::memcmp(&session, &expected, sizeof session), 0) << clock;
    }
}

} // namespace
