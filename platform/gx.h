// The game input library: gives a program the hardware buttons.
#pragma once

/// From now on the application buttons (VK_APP1 and following) no longer start their usual
/// programs; the program in front gets them by key messages and GetAsyncKeyState. Returns nonzero
/// on success.
int GXOpenInput();
/// Gives the buttons back to the system.
int GXCloseInput();
