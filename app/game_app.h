// The controller: owns everything that lives as long as the window, decides which screen is
// live, and passes every event of the window to it.
#pragma once

#include <windows.h>

#include "app/app_record.h"

struct GameApp : AppRecord
{
    /// Start-up, once the window and its menu bar exist.
    bool init(HWND window);
    /// One pass of the main loop: a requested change of state, then a step of the live screen.
    void tick(HWND window);
    /// Redraws the live screen in full; without a `target` to the window's own device context.
    void paint(HWND window, HDC target);
    bool activate(HWND window, bool active);
    /// The stylus was lifted at a point of the client area.
    bool tap(HWND window, int x, int y);
    /// Carries out a menu command; returns whether it was consumed.
    bool command(HWND window, int id);
    bool destroy(HWND window);

private:
    /// False before `init` and after `destroy`. The window can be destroyed while a dialog over it
    /// is open, so what follows a dialog asks for this.
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

static_assert(sizeof(GameApp) == sizeof(AppRecord));

extern GameApp gameApp;
