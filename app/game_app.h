// The controller: owns everything that lives as long as the window, decides which screen is
// live, and hands every event of the window to it. Its memory image is what the settings store.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include <windows.h>

#include "engine/game_session.h"
#include "frontend/high_score_table.h"
#include "frontend/title_screen.h"
#include "input/input_state.h"

enum class AppState : std::int32_t
{
    None = 0,     ///< before the first transition
    Title = 1,    ///< the title screen is live
    Starting = 2, ///< a new game is being set up; never outlasts a tick
    Playing = 3,  ///< a game exists and the play screen is live
};

struct GameApp
{
    AppState appState;       ///< the state whose screen is live
    AppState requestedState; ///< the state asked for; carried out by the next tick
    GameSession session;     ///< the game, and the choices that outlive it
    InputState input;
    TitleScreen titleScreen;
    std::array<HighScoreTable, 6> highScores; ///< by mode; the last two serve none

    GameApp();

    /// Start-up, once the window and its menu bar exist.
    bool init(HWND window);
    /// One pass of the main loop: a requested change of state, then a step of the live screen.
    void tick(HWND window);
    /// Redraws the live screen in full; `target` none: the window's own device context.
    void paint(HWND window, HDC target);
    bool activate(HWND window, bool active);
    /// The stylus was lifted at a point of the client area.
    bool tap(HWND window, int x, int y);
    /// Carries out a menu command; whether it was consumed.
    bool command(HWND window, int id);
    bool destroy(HWND window);

private:
    /// False before `init` and after `destroy`; a dialog that a closing window takes along returns
    /// only after that.
    bool live() const { return requestedState != AppState::None; }
    HighScoreTable &tableOfMode();
    void showChoices();
    void prepareFirstState(HWND window);
    void enterRequestedState(HWND window);
    void stepGame(HWND window);
    void endGame(HWND window);
    void tapTitle(HWND window, int hit);
    void abandonGame(HWND window);
    void showHighScores(HWND window);
};

/// The one there is.
extern GameApp gameApp;

static_assert(sizeof(GameApp) == 2496);
static_assert(std::is_trivially_copyable_v<GameApp>);
static_assert(offsetof(GameApp, session) == 8);
static_assert(offsetof(GameApp, input) == 660);
static_assert(offsetof(GameApp, titleScreen) == 724);
static_assert(offsetof(GameApp, highScores) == 744);
