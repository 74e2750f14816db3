// The drop-downs of the menu bar, and the loop that runs while one is open.
#pragma once

#include <optional>

#include "winuser.h"

namespace shell {

void registerDropDown();

/// Opens the drop-down of a button of the menu bar and handles messages until the user has chosen
/// an item, which is posted to the bar's parent as WM_COMMAND, or has dismissed it.
void trackMenu(HWND bar, int button);
/// Closes the drop-down that is open, if one is, without a choice.
void cancelMenu();

bool menuIsOpen();

struct ItemPlace
{
    RECT rect; ///< screen pixels
    bool grayed;
};
/// The item of the open drop-down with that command.
std::optional<ItemPlace> openItem(UINT command);

} // namespace shell
