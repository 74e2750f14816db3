// Menus as they are kept behind their handles.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "winuser.h"

namespace user {

struct MenuItem
{
    std::u16string text;
    UINT id = 0;      ///< the command; 0 of a separator or drop-down
    UINT flags = 0;   ///< MF_GRAYED, MF_SEPARATOR, MF_POPUP
    HMENU dropDown{}; ///< with MF_POPUP

    bool separator() const { return (flags & MF_SEPARATOR) != 0; }
    bool grayed() const { return (flags & MF_GRAYED) != 0; }
};

struct Menu
{
    std::vector<MenuItem> items;
    bool isDropDown = false; ///< it belongs to another menu
};

/// Null when there is no such menu.
const Menu *findMenu(HMENU menu);
/// How many menus the program has loaded and not destroyed.
std::size_t liveMenus();
void forgetMenus();

} // namespace user
