// COMBOBOX: drop-down lists.
#pragma once

#include <optional>

#include "winuser.h"

namespace controls {

void registerComboBox();

/// Closes an open list, unless `target`, where the stylus came down, is the list or its combo box.
void closeListUnless(HWND target);
/// The screen rectangle of an item in a combo box's open list; nothing when it is not open.
std::optional<RECT> listItemRect(HWND combo, int index);

} // namespace controls
