// The Game Options page: queue, hold, ghost and sound effects.
#pragma once

#include <windows.h>

struct GameSession;

/// Shows the options of a session until the player closes the page, and stores what was chosen.
void showOptionsDialog(GameSession &session, HWND parent);
