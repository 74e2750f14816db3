// What the window manager asks of the shell around its windows, and reports to it. The shell stands
// above the window manager and implements this.
#pragma once

#include "winuser.h"

namespace user {

class ShellInterface
{
public:
    virtual ~ShellInterface() = default;

    /// What a window placed by CW_USEDEFAULT covers, in screen pixels.
    virtual RECT workArea() const = 0;
    /// Whether Esc should cancel an open menu, or the dialog of `target`, which gets the keys.
    virtual bool escapeCancels(HWND target) const = 0;

    /// The active window is another one, or its caption, OK button, position or visibility changed.
    virtual void activeWindowChanged() = 0;
    /// The screen has another size; the program's windows follow after this.
    virtual void displayTurned() = 0;
    /// The focus moved to this window (none: nowhere).
    virtual void focusMoved(HWND window) = 0;
};

/// The shell in use, from the first switching on.
inline ShellInterface *theShell = nullptr;

} // namespace user
