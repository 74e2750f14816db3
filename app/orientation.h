// The game needs an upright display. It asks before it turns the display, and offers to turn it
// back.
#pragma once

#include <windows.h>

/// The user declined to turn the display, so the program ends.
constexpr int portraitDeclined = -1;

/// Asks to turn a display that is not upright. Returns the orientation it had when it was turned;
/// portraitDeclined; or 0 when there was nothing to do or the system cannot turn its display.
[[nodiscard]] int checkPortrait();
/// Asks whether to return to an orientation, unless that is 0 (upright).
void offerOrientationRestore(DWORD orientation);
/// The orientation before the program turned the display; 0 when it has not, or when the user does
/// not want it back.
extern DWORD savedOrientation;
