// The window classes of the controls, and what their procedures share.
#pragma once

#include "user/window.h"

namespace controls {

void registerButton();
void registerStatic();
void registerEdit();
/// CAPEDIT, an EDIT that capitalises.
void registerCapEdit();

/// Whether a window is an edit box of either class.
bool isEdit(HWND window);

/// What a window's class keeps with it from WM_CREATE on; null when the window is of another class.
template <class Data>
Data *dataOf(HWND window)
{
    user::Window *found = user::find(window);
    return found ? dynamic_cast<Data *>(found->data.get()) : nullptr;
}

/// Tells a control's parent about it: WM_COMMAND.
void notify(HWND control, UINT code);
/// Stores a new text and marks the control for painting.
LRESULT setText(HWND control, WPARAM wParam, LPARAM lParam);
RECT clientRect(HWND window);
POINT pointOf(LPARAM lParam);

} // namespace controls
