// EDIT and CAPEDIT: boxes for a line of text.
#pragma once

#include "winuser.h"

namespace controls {

void registerEdit();
/// CAPEDIT, an EDIT that capitalises.
void registerCapEdit();
/// Whether a window is an edit box of either class.
bool isEdit(HWND window);

} // namespace controls
