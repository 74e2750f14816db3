// The Game Options page: queue, hold, ghost and sound effects.
#pragma once

#include <windows.h>

struct GameSession;

/// Lets the player change the four options of a session; returns when the page has closed.
void showOptionsDialog(GameSession &session, HWND parent);
