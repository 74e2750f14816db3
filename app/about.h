// The About page: a picture and the version.
#pragma once

#include <windows.h>

void showAboutDialog(HWND window);
