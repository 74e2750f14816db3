// When the input panel is up: while a program wants it, or while an edit box has the focus in a
// dialog with a SIPPREF.
#pragma once

#include "winuser.h"

namespace shell {

void switchOnInputPanel();
void setInputPanel(bool up);
void inputPanelFocusMoved(HWND window);
/// CAPEDIT and SIPPREF; once is enough.
void registerExtraControls();

} // namespace shell
