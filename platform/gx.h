// The game input library: lets a program have the hardware buttons to itself.
#pragma once

/// From now on the application buttons (VK_APP1 and following) reach the program in front, in
/// key messages and in GetAsyncKeyState, instead of starting their usual programs. Returns
/// nonzero on success.
int GXOpenInput();
/// Gives the buttons back to the system.
int GXCloseInput();
