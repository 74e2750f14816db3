// The program's one window. WinMain makes it and gives out its messages.
#pragma once

#include <windows.h>

extern HWND mainWindow;
