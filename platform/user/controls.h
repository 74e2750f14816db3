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

/// The state of a control, made on WM_NCCREATE's stand-in, its first message; null when the window
/// is not of that kind.
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
