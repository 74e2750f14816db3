// The display and its orientation.
#pragma once

#include "wingdi.h"

namespace user {

/// Sets the orientation (0, 1, 2 or 4; others count as 0) and clears the screen in its new size.
void setOrientation(int orientation);
/// Turns the display and moves the windows with it; does nothing for the present orientation.
void turnDisplay(int orientation);

/// "ChangeDisplaySettingsEx" of the system library.
LONG changeDisplaySettings(LPCWSTR device, DEVMODEW *mode, HWND window, DWORD flags,
                           void *parameter);

} // namespace user
