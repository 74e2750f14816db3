// Dialogs of the program's own resources, run modally.
#pragma once

#include <windows.h>

/// Runs dialog resource `id` over `owner`; returns what its procedure gave to EndDialog, or -1
/// when it could not be shown.
INT_PTR runDialog(UINT id, HWND owner, DLGPROC procedure, LPARAM parameter);
/// Makes a dialog fill the screen, with the SHIDIF_ flags given besides. For WM_INITDIALOG.
void fillScreen(HWND dialog, DWORD flags);
