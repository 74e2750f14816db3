// The input panel: a keyboard on the lower part of the screen, to be tapped with the stylus.
#pragma once

#include "winuser.h"

namespace shell {

/// Registers its window class; the panel is lowered.
void registerSoftKeyboard();
void raiseSoftKeyboard();
void lowerSoftKeyboard();
/// Moves it above the menu bar's rows.
void placeSoftKeyboard();

} // namespace shell
