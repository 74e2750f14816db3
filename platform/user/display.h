// The display and its orientation.
#pragma once

#include "wingdi.h"

namespace user {

/// Gives the screen an orientation, its size in that, and nothing on it.
void setOrientation(int orientation);
/// Turns the display and everything on it. Nothing happens when it is in that orientation already.
void turnDisplay(int orientation);

/// "ChangeDisplaySettingsEx" of the system library.
LONG changeDisplaySettings(LPCWSTR device, DEVMODEW *mode, HWND window, DWORD flags,
                           void *parameter);

} // namespace user
