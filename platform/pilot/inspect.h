// A look at the windows for scripts and tests: which there are, and where on the screen a tap
// reaches a control, a menu item or a button of the shell. Nothing is changed here.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "windef.h"

namespace inspect {

struct WindowView
{
    HWND window;
    int depth = 0; ///< 0 for a top-level window, 1 for its children
    std::u16string className;
    int id = 0;  ///< a control's identifier, -1 in most statics; 0 for a top-level window
    RECT rect{}; ///< screen pixels
    std::u16string text;
    bool active = false;
    bool disabled = false;
    bool hidden = false;
    std::optional<int> checked; ///< of a combo box: the item that is selected
};

/// Every window, front to back, each followed by its children in template order.
std::vector<WindowView> windows();

/// Something that can be tapped.
struct Target
{
    POINT centre;
    bool enabled = true;
};

/// The visible control with that identifier in the active window (or a button of the open
/// message box).
std::optional<Target> control(int id);
/// Button 0 or 1 of the menu bar.
std::optional<Target> menuBarButton(int index);
/// The index of the menu-bar button whose drop-down holds a command.
std::optional<int> menuBarButtonOf(int command);
/// An item of the drop-down that is open.
std::optional<Target> openMenuItem(int command);
/// Whether a drop-down is open.
bool menuOpen();
/// An item of a combo box's open list.
std::optional<Target> openListItem(int comboId, int index);
/// The OK button of the title bar.
std::optional<Target> okButton();
/// The program's windows, timers and menus: "window CLASS", "timer 1 of CLASS", "menu", a line
/// each.
std::vector<std::string> liveObjects();

} // namespace inspect
