// What the procedures of the controls, and of the shell's windows, share, and the simplest
// controls.
#pragma once

#include "user/table.h"

namespace controls {

/// A window's data, from WM_CREATE on; null when it is of another class.
template <class Data>
Data *dataOf(HWND window)
{
    user::Window *found = user::find(window);
    return found ? dynamic_cast<Data *>(found->data.get()) : nullptr;
}

/// A window procedure that makes a `Data` for its window on WM_CREATE and calls `handle` with it.
template <class Data, auto handle>
LRESULT CALLBACK procedureWith(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_CREATE) {
        user::find(window)->data = std::make_unique<Data>();
    }
    Data *data = dataOf<Data>(window);
    return data ? handle(window, *data, message, wParam, lParam)
                : DefWindowProcW(window, message, wParam, lParam);
}

// Register the window classes BUTTON, push buttons, and STATIC, texts and pictures of dialogs.
void registerButton();
void registerStatic();

/// Sends WM_COMMAND with this code to the control's parent.
void notify(HWND control, UINT code);
/// Stores a new text and marks the control for painting.
LRESULT setText(HWND control, WPARAM wParam, LPARAM lParam);
RECT clientRect(HWND window);
/// Where a window is on the screen; empty when it is gone.
RECT screenRectOf(HWND window);
POINT pointOf(LPARAM lParam);

} // namespace controls
