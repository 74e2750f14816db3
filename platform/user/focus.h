// The active window, the focus and the capture of the stylus.
#pragma once

#include "winuser.h"

namespace user {

/// Makes a top-level window the active one (none: no window is); `how` goes into WM_ACTIVATE.
/// False when the window is gone or a window procedure has activated another one meanwhile.
bool activate(HWND window, WPARAM how);
/// Takes activation, focus and capture away from a window that was hidden or is being removed, and
/// from its children.
void leaveWindow(HWND handle);
/// Moves the focus (none: nowhere) without changing the active window.
void moveFocus(HWND window);
/// The window that gets the keys: the one with the focus, else the active one. None while another
/// program is in front, or when that window is disabled.
HWND keyWindow();

/// Another program came to the front, or this one came back.
void leaveForeground();
void comeToForeground();
bool inForeground();

/// Counts the calls of SetCapture, to see whether a message handler made one.
unsigned captureCount();

void forgetFocus();

} // namespace user
