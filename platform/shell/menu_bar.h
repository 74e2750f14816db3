// Menu bars: one for each window that asked for one, at the bottom of the screen.
#pragma once

#include <string>
#include <vector>

#include "winuser.h"

namespace shell {

constexpr int menuBarHeight = 26; ///< pixels

struct MenuBarButton
{
    std::u16string text;
    UINT command = 0;
    HMENU dropDown{};
    RECT rect{}; ///< pixels of the bar
};

/// Called when the stylus comes down on button `index` of a bar.
using ButtonPressed = void (*)(HWND bar, int index);
void registerMenuBar(ButtonPressed pressed);
/// Makes a hidden menu bar, owned by `parent`; it destroys `menu` with itself. Returns none when
/// the window cannot be made, and the menu stays the caller's.
HWND createMenuBar(HWND parent, HMENU menu, std::vector<MenuBarButton> buttons);
/// Shows the bar of the active window, or of the window that owns it, and hides the others.
void updateMenuBars();
/// Moves the bars to the screen's last rows.
void placeMenuBars();

/// The bar that can be seen, or none.
HWND shownMenuBar();
const std::vector<MenuBarButton> &buttonsOf(HWND bar);
/// Draws button `index` (-1: none) as the one whose drop-down is open.
void markButton(HWND bar, int index);

} // namespace shell
