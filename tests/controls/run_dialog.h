// The running of dialogs in tests.
#pragma once

#include "user/program_test.h"

/// What a dialog procedure answers; WM_INITDIALOG, when it is not looked at, is answered TRUE.
using DialogHandler = std::function<INT_PTR(HWND, UINT, WPARAM, LPARAM)>;

inline INT_PTR CALLBACK handledDialog(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG) {
        SetWindowLongW(dialog, DWL_USER, lParam);
    }
    const auto *handler = reinterpret_cast<DialogHandler *>(GetWindowLongW(dialog, DWL_USER));
    const INT_PTR answer =
        handler && *handler ? (*handler)(dialog, message, wParam, lParam) : FALSE;
    return message == WM_INITDIALOG ? TRUE : answer;
}

inline INT_PTR runDialog(unsigned id, HWND owner, DialogHandler handler = {})
{
    const HRSRC resource = FindResourceW({}, MAKEINTRESOURCEW(id), MAKEINTRESOURCEW(5));
    return DialogBoxIndirectParamW({}, LoadResource({}, resource), owner, handledDialog,
                                   reinterpret_cast<LPARAM>(&handler));
}

/// Ends the dialog with the identifier of any button that is clicked.
inline INT_PTR endByCommand(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != WM_COMMAND || HIWORD(wParam) != BN_CLICKED) {
        return FALSE;
    }
    EXPECT_EQ(lParam, static_cast<LPARAM>(GetDlgItem(dialog, LOWORD(wParam)).value));
    return EndDialog(dialog, LOWORD(wParam));
}
