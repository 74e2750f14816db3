// A game without a window: a test runs its rules tick by tick and says which buttons are held.
#pragma once

#include <algorithm>
#include <initializer_list>

#include "engine/game_session.h"
#include "engine/random.h"
#include "support/fake_host.h"

class PlayedGame
{
public:
    GameSession session;

    explicit PlayedGame(GameMode mode = GameMode::Marathon, int startLevel = 0)
    {
        seedRandom(7);
        session.mode = mode;
        session.startLevel = startLevel;
        session.newGame(HWND{});
    }

    ActivePiece &piece() { return session.playfield.piece; }

    /// Replaces the falling piece.
    void put(TetrominoType type, int x, int y, int rotation)
    {
        piece().type = type;
        piece().x = x;
        piece().y = y;
        piece().rotation = rotation;
    }
    bool isAt(int x, int y, int rotation)
    {
        return piece().x == x && piece().y == y && piece().rotation == rotation;
    }
    /// Fills a row except some columns.
    void fillRow(int row, std::initializer_list<int> gaps = {})
    {
        for (int column = 0; column < wellColumns; ++column) {
            if (std::find(gaps.begin(), gaps.end(), column) == gaps.end()) {
                session.playfield.setCell(column, row, TetrominoType::J);
            }
        }
    }
    /// Empties the cells of a piece.
    void empty(const RotationState &state, int x, int y)
    {
        for (const CellOffset &cell : state.cells) {
            const int index = (y + cell.y) * wellColumns + x + cell.x;
            session.playfield.cells[static_cast<std::size_t>(index)] = {};
        }
    }
    bool filled(int column, int row)
    {
        return session.playfield.cellAt(column, row)->occupied != 0;
    }

    /// One running tick, 25 ms after the last, with these buttons down.
    void tick(std::initializer_list<Action> down = {})
    {
        session.now = session.after(timing::tick);
        session.soundEvent = SoundEvent::None;
        session.dirty = 0;
        for (std::size_t i = 0; i < actionCount; ++i) {
            input_.slots[i].wasDown = input_.slots[i].down;
            input_.slots[i].down = 0;
        }
        for (const Action action : down) {
            input_.slots[static_cast<std::size_t>(action)].down = 1;
        }
        if (session.state == GameState::Running) {
            session.update(input_);
        }
    }
    void ticks(int count, std::initializer_list<Action> down = {})
    {
        for (int i = 0; i < count; ++i) {
            tick(down);
        }
    }
    /// Milliseconds from the last tick to the deadline.
    int untilDeadline() const { return -session.since(session.deadline); }

private:
    SwitchedOn handheld_;
    InputState input_;
};
