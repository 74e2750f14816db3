// The shell: the title bar and the menu bar that frame the program's windows, and the input panel.
// The window manager tells it what happens to windows; it draws with windows of its own.
#pragma once

#include "winuser.h"

namespace shell {

/// Rows of the screen that the shell keeps for itself.
constexpr int titleBarHeight = 26;
constexpr int menuBarHeight = 26;

/// Registers the shell's and the dialogs' window classes and makes the title bar.
void switchOn();

/// The active window is another one, or its caption, OK button, position or visibility changed.
void activeWindowChanged();
/// The display has another size; windows of the program follow after this.
void displayTurned();
/// The focus moved to this window (none: nowhere).
void focusMoved(HWND window);

} // namespace shell
