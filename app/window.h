// The program's one window. WinMain makes it and dispatches its messages.
#pragma once

#include <windows.h>

extern HWND mainWindow;
