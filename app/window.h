// The program's one window, its menu bar and its device context.
#pragma once

#include <windows.h>

extern HINSTANCE moduleInstance; ///< for every resource
extern HWND mainWindow;
extern HWND menuBar; ///< none when it could not be made
extern HDC windowDC; ///< the main window's own, kept from WM_CREATE to WM_DESTROY

/// Makes the window and starts the program in it; false when another copy runs already (it is
/// brought to the front) or the window cannot be made.
bool initInstance(HINSTANCE instance, int showCommand);
