// What the rest of the program relies on: what each event has redrawn, and the options.
#include <optional>

#include <gtest/gtest.h>

#include "engine/game_session.h"
#include "engine/random.h"
#include "support/fake_host.h"

namespace {

struct Session : testing::Test
{
    Session() { session.newGame(HWND{}); }

    /// An O that lies in columns 4 and 5.
    void putO(int y)
    {
        ActivePiece &piece = session.playfield.piece;
        piece.type = TetrominoType::O;
        piece.x = 3;
        piece.y = y;
        piece.rotation = 0;
    }
    /// Fills a row; columns 4 and 5 only when it is to be `whole`.
    void fillRow(int row, bool whole)
    {
        for (int column = 0; column < wellColumns; ++column) {
            if (whole || (column != 4 && column != 5)) {
                session.playfield.setCell(column, row, TetrominoType::J);
            }
        }
    }
    /// Running ticks, 25 ms apart, with one button down or none. Returns what the last has redrawn.
    std::uint32_t ticks(int count, std::optional<Action> down = {})
    {
        for (int i = 0; i < count; ++i) {
            session.now = session.after(timing::tick);
            session.dirty = 0;
            for (std::size_t button = 0; button < actionCount; ++button) {
                input.slots[button].wasDown = input.slots[button].down;
                input.slots[button].down = down && static_cast<std::size_t>(*down) == button;
            }
            session.update(input);
        }
        return session.dirty;
    }

    SwitchedOn handheld;
    GameSession session;
    InputState input;
};

/// From a piece that lands to the next one.
TEST_F(Session, RedrawsWhatALockAndAClearChange)
{
    fillRow(18, false);
    fillRow(19, false);
    putO(17);
    EXPECT_EQ(ticks(1, Action::SoftDrop), dirty::score | dirty::movedPiece);
    EXPECT_EQ(ticks(40), dirty::well | dirty::clearAnimation);
    EXPECT_EQ(ticks(7, Action::Left), dirty::clearAnimation);
    EXPECT_EQ(ticks(1), dirty::well | dirty::queue | dirty::score | dirty::lines);
    EXPECT_EQ(ticks(1, Action::HardDrop), dirty::score | dirty::movedPiece);
}

TEST_F(Session, RedrawsNothingWhenThePieceCannotMove)
{
    for (int row = 0; row < wellRows; ++row) {
        fillRow(row, true);
    }
    for (const Action action : {Action::RotateLeft, Action::Left, Action::SoftDrop}) {
        EXPECT_EQ(ticks(1, action), 0U);
    }
}

TEST_F(Session, RedrawsARiseOfTheLevelAndTheNextBackdrop)
{
    session.lines = 9;
    session.dirty = 0;
    session.rowsCleared(1);
    EXPECT_EQ(session.dirty, dirty::score | dirty::lines | dirty::level);
    for (const int rows : {0, 5}) { // as a damaged store may have them
        EXPECT_EQ(session.clearPoints(rows), 0);
    }
    session.lines = 29;
    session.rowsCleared(1);
    EXPECT_EQ(session.backdrop, 1);
    EXPECT_EQ(session.dirty, dirty::everything);
    for (const int level : {9, 10}) { // the speed stays
        session.setLevel(level);
        EXPECT_EQ(session.gravityMs, 180);
    }
}

TEST_F(Session, RefreshesTheUltraClockEverySecond)
{
    session.mode = GameMode::Ultra2Min;
    int refreshes = 0;
    for (session.timeLeft = 201; session.timeLeft > 1;) {
        putO(0); // keeps on falling
        refreshes += (ticks(1) & dirty::time) != 0;
    }
    EXPECT_EQ(refreshes, 5);
    EXPECT_EQ(ticks(1) & dirty::well, dirty::well);
    EXPECT_EQ(session.state, GameState::Ending);
}

/// A host may be late to the ticks before it: none of them redraws anything or sounds.
TEST_F(Session, KnowsItsNextChange)
{
    int quietTicks = 0;
    for (int game = 0; game < 40; ++game) {
        session.mode = game % 2 == 0 ? GameMode::Marathon : GameMode::Ultra2Min;
        session.startLevel = game % 10;
        session.newGame(HWND{});
        session.timeLeft = 500;
        fillRow(19, false);
        putO(16);
        std::optional<Action> down;
        while (session.state == GameState::Running) {
            const int chance = drawRandom() % 40;
            const bool same = chance > static_cast<int>(actionCount);
            if (!same) {
                down = chance > 0 ? std::optional(static_cast<Action>(chance - 1)) : std::nullopt;
            }
            session.dirty = 0;
            session.soundEvent = SoundEvent::None;
            const auto change = session.nextChange(input);
            ASSERT_TRUE(change) << "a piece that falls";
            const bool quiet = *change > session.after(timing::tick);
            const bool changed = ticks(1, down) != 0 || session.soundEvent != SoundEvent::None;
            EXPECT_FALSE(quiet && (same || !down) && changed);
            quietTicks += quiet;
        }
        ticks(1);
    }
    EXPECT_GT(quietTicks, 1000);
    session.pause();
    session.dirty = 0;
    EXPECT_EQ(session.nextChange(input), std::nullopt);
}

TEST_F(Session, HoldShowsAtOnceAndCanBeDisabled)
{
    const auto first = static_cast<std::int32_t>(session.playfield.piece.type);
    session.holdEnabled = 0;
    ticks(1, Action::Hold);
    EXPECT_EQ(session.holdType, -1);
    session.holdEnabled = 1;
    ticks(1);
    EXPECT_EQ(ticks(1, Action::Hold), dirty::everything);
    EXPECT_EQ(session.holdType, first);
}

TEST_F(Session, NeverRemovesTheTopRow)
{
    for (const int row : {0, 1, 7}) {
        fillRow(row, true);
    }
    EXPECT_EQ(session.playfield.markFullRows(), 2);
    EXPECT_EQ(session.playfield.removeFullRows(), 2);
    EXPECT_EQ(session.playfield.cellAt(0, 2)->occupied, 1);
}

} // namespace
