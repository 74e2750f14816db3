// What the procedures of the controls, and of the shell's windows, share.
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

/// Sends WM_COMMAND with this code to the control's parent.
void notify(HWND control, UINT code);
/// Stores a new text and marks the control for painting.
LRESULT setText(HWND control, WPARAM wParam, LPARAM lParam);
RECT clientRect(HWND window);
POINT pointOf(LPARAM lParam);

} // namespace controls
