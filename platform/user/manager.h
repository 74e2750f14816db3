// Inside the window manager: the table of windows, their order, and its place in the life of the
// handheld.
#pragma once

#include <vector>

#include "user/window.h"

namespace user {

/// Back to the state at switch-on: no window, no message, no timer, no key down.
void reset();

// The table ----------------------------------------------------------------------------------

/// A new window with a handle, not yet among others.
Window &addWindow();
/// Takes a window from its siblings and from the table.
void removeWindow(HWND handle);
void forgetWindows();
void forgetClasses();
void forgetProgramWindow();

/// Every window, front to back, each before its children.
std::vector<Window *> everyWindow();
/// The same as handles, for loops that call window procedures.
std::vector<HWND> handlesOf(const std::vector<Window *> &windows);

const WindowClass *findClass(LPCWSTR name);

// Order --------------------------------------------------------------------------------------

/// Puts a new window among its siblings: a child behind all others, a top-level window before.
void insertWindow(Window &window);
void removeFromSiblings(Window &window);
void forgetOrder();
/// To the top of its siblings; with a top-level window go those that it owns, before it.
void bringToTop(Window &window);
/// Directly behind a sibling.
void placeBehind(Window &window, Window &sibling);
/// Whether `window` is `ancestor` or is owned by it, however indirectly.
bool belongsTo(const Window &window, const Window &ancestor);

// State --------------------------------------------------------------------------------------

/// Shown, and so are all its parents.
bool reallyShown(const Window &window);
/// Enabled, and so are all its parents.
bool reallyEnabled(const Window &window);
/// `window` is `ancestor` or a child of it, however indirectly.
bool isWithin(HWND window, HWND ancestor);
/// Where a window is as messages tell it: a child in its parent's client area, others on the
/// screen.
POINT placeOf(const Window &window);
/// The whole screen in pixels.
RECT screenRect();
/// What a window placed by CW_USEDEFAULT covers.
RECT defaultRect();

} // namespace user
