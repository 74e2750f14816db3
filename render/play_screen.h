// What the play screen's renderer (play_screen.cpp) and its text (play_screen_text.cpp) share. All
// of it draws into the session's `backDC`.
#pragma once

#include <windows.h>

#include "engine/game_session.h"
#include "render/graphics.h"

/// The well: 10 by 20 cells of 11 by 11 pixels.
constexpr RECT boardRect{22, 11, 132, 231};

/// Puts the backdrop back where something is about to be redrawn. Does nothing while everything is
/// dirty: then the whole backdrop has just been put back.
void eraseRect(const GameSession &session, const RECT &rect);

/// Redraws the dirty values along the bottom.
void drawValues(const GameSession &session);
/// PAUSED over an erased well.
void drawPausedOverlay(const GameSession &session);
/// GAME OVER or OUT OF TIME! over the well as it is.
void drawEndOverlay(const GameSession &session);
