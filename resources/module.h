// The program's module, where all its resources are, and two things done with them everywhere:
// reading a text and running a dialog.
#pragma once

#include <string>

#include <windows.h>

/// The running program; set at its start.
extern HINSTANCE moduleInstance;

/// String resource `id`, at most 255 code units of it; empty when there is none.
[[nodiscard]] std::u16string loadText(UINT id);

/// Runs dialog resource `id` modally over `owner`; `parameter` comes with WM_INITDIALOG. Returns
/// the result passed to EndDialog, or -1 when the dialog cannot be shown.
INT_PTR runDialog(UINT id, HWND owner, DLGPROC procedure, LPARAM parameter = 0);
/// Makes a dialog fill the screen, with the SHIDIF_ flags given besides. For WM_INITDIALOG.
void fillScreen(HWND dialog, DWORD flags = 0);
