// The menu bar at the bottom of the screen.
#pragma once

#include <windows.h>

extern HWND menuBar; ///< none when it could not be made

/// Makes the menu bar of a window; none on failure.
[[nodiscard]] HWND createMenuBar(HWND window);
/// Grays the commands that make no sense: without a game, or while one is in progress.
void updateMenuItems(bool playing);
