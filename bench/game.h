// The game whose work is measured: in a window where the real one has its own, on a handheld that
// is switched on for it.
#pragma once

#include "engine/game_session.h"
#include "render/graphics.h"
#include "resources/program_resources.h"
#include "support/fake_host.h"

struct Game
{
    SwitchedOn on{programResources()};
    HWND window{};
    GameSession session;
    InputState input;

    Game()
    {
        WNDCLASSW windowClass{};
        windowClass.lpfnWndProc = DefWindowProcW;
        windowClass.lpszClassName = u"Bench";
        RegisterClassW(&windowClass);
        window = CreateWindowExW(0, u"Bench", u"", WS_VISIBLE, CW_USEDEFAULT, CW_USEDEFAULT,
                                 CW_USEDEFAULT, CW_USEDEFAULT, {}, {}, {}, nullptr);
        ShowWindow(window, SW_SHOW);
        windowDC = GetDC(window);
        screenSurface = new Surface(windowDC, screenWidth, screenHeight);
        session.create(window);
        session.newGame(window);
        session.tick(window, input);
    }
    ~Game()
    {
        session.destroy(window);
        deleteSurface(screenSurface);
    }
    Game(const Game &) = delete;
    Game &operator=(const Game &) = delete;

    /// A tick in which the piece falls, through the upper half of the well again and again. Returns
    /// whether it did.
    bool fall()
    {
        advanceClock();
        const std::int32_t before = session.playfield.piece.y;
        session.deadline = session.now;
        session.tick(window, input);
        return session.playfield.piece.y != before;
    }

    /// Lays blocks on the ground.
    void settle(int blocks)
    {
        for (int i = 0; i < blocks; ++i) {
            session.playfield.setCell(i % wellColumns, wellRows - 1 - i / wellColumns,
                                      static_cast<TetrominoType>(i % tetrominoCount));
        }
    }
    void repaint()
    {
        session.dirty = dirty::everything;
        session.paint(window, HDC{});
    }

    /// The rules alone.
    void update()
    {
        advanceClock();
        session.now += timing::tick;
        session.update(input);
    }

private:
    void advanceClock()
    {
        on.host.clock += timing::tick;
        if (session.playfield.piece.y > wellRows / 2) {
            session.playfield.piece.y = 0;
        }
    }
};
