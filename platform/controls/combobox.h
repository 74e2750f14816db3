// The lists that combo boxes drop.
#pragma once

#include <optional>

#include "winuser.h"

namespace controls {

void registerComboBox();

/// The stylus came down on `target`: an open list closes, unless it or its combo box was meant.
void closeListUnless(HWND target);
/// Where an item of a combo box's open list is on the screen; none when it is not to be seen.
std::optional<RECT> listItemRect(HWND combo, int index);

} // namespace controls
