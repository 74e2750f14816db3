// The table of windows: from handles to windows.
#pragma once

#include <vector>

#include "user/window.h"

namespace user {

/// The window of a handle, its lowest bit ignored; null when there is none.
Window *find(HWND handle);
/// Whether `window` is `ancestor` or a child of it, however indirectly.
bool isWithin(HWND window, HWND ancestor);
/// The handle of a window; none for null.
inline HWND handleOf(const Window *window) { return window ? window->handle : HWND{}; }
/// A window and its children, however indirect, each before its own children.
std::vector<Window *> familyOf(Window &window);
/// Every window, front to back, each before its children.
std::vector<Window *> everyWindow();
/// The same windows as handles, for loops that call window procedures: those may destroy any.
std::vector<HWND> handlesOf(const std::vector<Window *> &list);

/// A new window with a handle, not yet among others.
Window &addWindow();
/// Takes a window from its siblings and from the table.
void removeWindow(HWND handle);
void forgetWindows();

} // namespace user
