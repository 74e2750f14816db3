// The game is made for a display held upright. It asks before it turns the display, and offers to
// turn it back.
#pragma once

#include <windows.h>

/// The user declined to turn the display: the program is to end.
constexpr int portraitDeclined = -1;

/// Makes sure that the display is in portrait orientation. Returns 0 when there was nothing to do
/// or the system cannot turn its display, the orientation before when it was turned, or
/// portraitDeclined.
int checkPortrait();
/// Asks whether to return to an orientation, unless that is 0.
void offerOrientationRestore(DWORD orientation);
/// The orientation before the program turned the display; 0 when it has not.
extern DWORD savedOrientation;
