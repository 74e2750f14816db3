#include <gtest/gtest.h>

#include "engine/played_game.h"

namespace {

using enum TetrominoType;

TEST(Actions, AHeldShiftRepeatsAfter250ThenEvery100Milliseconds)
{
    PlayedGame game;
    game.put(O, 8, 0, 0);
    std::vector<int> moves;
    for (int time = 0; time <= 600; time += 25) {
        const int before = game.piece().x;
        game.tick({Action::Left});
        if (game.piece().x != before) {
            moves.push_back(time);
            EXPECT_EQ(game.session.soundEvent, SoundEvent::Shift);
            EXPECT_TRUE(game.session.dirty & dirty::movedPiece);
        }
    }
    EXPECT_EQ(moves, (std::vector<int>{0, 250, 350, 450, 550}));
}

TEST(Actions, ChangingDirectionWithoutAPauseKeepsTheRepeat)
{
    PlayedGame game;
    game.put(O, 3, 0, 0);
    game.tick({Action::Left, Action::Right}); // left wins
    EXPECT_EQ(game.piece().x, 2);
    game.ticks(9, {Action::Right}); // waits for the first move's 250 ms
    EXPECT_EQ(game.piece().x, 2);
    game.tick({Action::Right});
    EXPECT_EQ(game.piece().x, 3);
    game.ticks(4, {Action::Right});
    EXPECT_EQ(game.piece().x, 4);
    game.tick(); // neither: starts afresh
    game.tick({Action::Right});
    EXPECT_EQ(game.piece().x, 5);
}

TEST(Actions, AShiftAgainstTheWallKeepsItsTiming)
{
    PlayedGame game;
    game.put(O, -1, 0, 0);
    game.tick({Action::Left});
    EXPECT_EQ(game.session.shiftNext, 0);
    EXPECT_EQ(game.session.soundEvent, SoundEvent::None);
}

TEST(Actions, SoftDropStepsEvery50MillisecondsForAPointEach)
{
    PlayedGame game;
    const int startRow = game.piece().y;
    game.ticks(10, {Action::SoftDrop});
    EXPECT_EQ(game.piece().y, startRow + 5);
    EXPECT_EQ(game.session.score, 5);
}

TEST(Actions, HardDropScoresTwoARowAndLocksInTheNextTick)
{
    PlayedGame game;
    game.put(O, 3, -1, 0);
    game.tick({Action::HardDrop});
    EXPECT_EQ(game.session.score, 38);
    EXPECT_EQ(game.piece().y, 18);
    EXPECT_FALSE(game.filled(4, 19));
    game.tick({Action::HardDrop}); // held: no second one
    EXPECT_TRUE(game.filled(4, 19));
    EXPECT_EQ(game.session.soundEvent, SoundEvent::Lock);
    EXPECT_EQ(game.session.score, 38);
    EXPECT_EQ(game.session.phase, Phase::Falling);
}

TEST(Actions, AHardDropMayStillSlideInItsTick)
{
    PlayedGame game;
    game.session.playfield.setCell(4, 19, J);
    game.put(O, 3, 0, 0);
    game.tick({Action::HardDrop, Action::Right});
    EXPECT_EQ(game.piece().x, 4);
    EXPECT_EQ(game.session.phase, Phase::Falling);
    EXPECT_EQ(game.untilDeadline(), game.session.gravityMs);
}

TEST(Actions, HoldWorksOncePerPiece)
{
    PlayedGame game;
    const TetrominoType first = game.piece().type;
    const TetrominoType second = game.piece().queue.entries[0];
    game.tick({Action::Hold});
    EXPECT_EQ(game.session.holdType, static_cast<int>(first));
    EXPECT_EQ(game.piece().type, second);
    EXPECT_EQ(game.session.dirty, dirty::everything);
    game.tick();
    game.tick({Action::Hold});
    EXPECT_EQ(game.piece().type, second);
    game.tick({Action::HardDrop});
    game.tick();
    const TetrominoType third = game.piece().type;
    game.ticks(10, {Action::SoftDrop});
    game.tick({Action::Hold});
    EXPECT_EQ(game.piece().type, first);
    EXPECT_EQ(game.piece().y, spawnPlace(first).y);
    EXPECT_EQ(game.session.holdType, static_cast<int>(third));

    PlayedGame without;
    without.session.holdEnabled = 0;
    without.tick({Action::Hold});
    EXPECT_EQ(without.session.holdType, -1);
}

TEST(Actions, TurnsTakeTheFirstPlaceThatFits)
{
    struct Case
    {
        const char *what;
        TetrominoType type;
        int rotation, x;
        Action turn;
        int expectedRotation, expectedX, expectedY; // from y = 10
    };
    const Case cases[] = {
        {"T in the open", T, 0, 4, Action::RotateRight, 1, 4, 10},
        {"I moves its box", I, 0, 2, Action::RotateRight, 1, 3, 10},
        {"I and back", I, 1, 3, Action::RotateLeft, 0, 2, 10},
        {"T off the left wall", T, 1, -1, Action::RotateLeft, 0, 0, 10},
        {"T off the right wall", T, 3, 8, Action::RotateRight, 0, 7, 10},
        {"I at the left wall", I, 1, -2, Action::RotateRight, 2, 0, 11},
        {"O stays", O, 0, 4, Action::RotateRight, 1, 4, 10},
    };
    for (const Case &c : cases) {
        PlayedGame game;
        game.put(c.type, c.x, 10, c.rotation);
        game.tick({c.turn});
        EXPECT_EQ(game.piece().rotation, c.expectedRotation) << c.what;
        EXPECT_EQ(game.piece().x, c.expectedX) << c.what;
        EXPECT_EQ(game.piece().y, c.expectedY) << c.what;
        EXPECT_EQ(game.session.soundEvent, SoundEvent::Rotate) << c.what;
    }
}

TEST(Actions, ATurnWithoutRoomChangesNothing)
{
    PlayedGame game;
    for (int row = 6; row < 20; ++row) {
        game.fillRow(row, {4});
    }
    game.put(I, 2, 10, 1);
    game.tick({Action::RotateRight});
    EXPECT_EQ(game.piece().rotation, 1);
    EXPECT_EQ(game.session.soundEvent, SoundEvent::None);
}

} // namespace
