// The display and its orientation.
#pragma once

#include "wingdi.h"

namespace user {

/// Gives the screen the size that it has in an orientation.
void switchDisplayOn(int orientation);
/// Turns the display and everything on it. Nothing happens when it is in that orientation already.
void turnDisplay(int orientation);

/// "ChangeDisplaySettingsEx" of the system library.
LONG changeDisplaySettings(LPCWSTR device, DEVMODEW *mode, HWND window, DWORD flags,
                           void *parameter);

} // namespace user
