// The windows behind the handles: what the window manager, the controls and the shell know of them.
// Programs see only handles (winuser.h).
#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "gdi/region.h"
#include "gdi/screen.h"
#include "user/classes.h"
#include "winuser.h"

namespace user {

/// What a class of the system keeps with each of its windows: a control's state, a dialog's
/// focus and result. Deleted with the window, after its WM_NCDESTROY.
struct WindowData
{
    virtual ~WindowData() = default;
};

struct Window final : gdi::ScreenArea
{
    HWND handle;
    const WindowClass *windowClass = nullptr;
    WNDPROC procedure = nullptr;
    DWORD style = 0;
    DWORD exStyle = 0;
    int id = 0;                     ///< of a child
    Window *parent = nullptr;       ///< of a child
    Window *owner = nullptr;        ///< of a top-level window
    std::vector<Window *> children; ///< front to back, which is the order of creation
    RECT rect{};                    ///< screen pixels; may be set only by SetWindowPos
    std::u16string text;
    std::array<LONG_PTR, 3> dialogData{}; ///< DWL_MSGRESULT, DWL_DLGPROC, DWL_USER
    bool isDialog = false;                ///< dialogData is in use
    std::unique_ptr<WindowData> data;
    gdi::Region invalid;       ///< screen pixels; what WM_PAINT is still to draw
    bool erasePending = false; ///< the invalid part is to be erased first

    POINT origin() const override { return {rect.left, rect.top}; }
    SIZE size() const override { return {rect.right - rect.left, rect.bottom - rect.top}; }
    /// What can be seen of the window itself, without its children: screen pixels.
    const gdi::Region &visible() const override;

    bool shown() const { return (style & WS_VISIBLE) != 0; }
    bool enabled() const { return (style & WS_DISABLED) == 0; }
    /// Shown or enabled, and so are all its parents.
    bool reallyShown() const { return shown() && (!parent || parent->reallyShown()); }
    bool reallyEnabled() const { return enabled() && (!parent || parent->reallyEnabled()); }
    /// Whether it can become active; the shell's bars and drop-downs cannot.
    bool activatable() const { return (exStyle & WS_EX_NOACTIVATE) == 0; }
    Window &topLevel() { return parent ? parent->topLevel() : *this; }
    /// Its place as messages give it: a child's in its parent's client area, others' on the screen.
    POINT place() const
    {
        const POINT base = parent ? parent->origin() : POINT{};
        return {rect.left - base.x, rect.top - base.y};
    }

    // Of the window manager alone:
    bool destroying = false;  ///< DestroyWindow has begun
    std::vector<HDC> openDCs; ///< closed with the window
    mutable gdi::Region visibleRegion;
    mutable unsigned visibleAsOf = 0; ///< the arrangement for which visibleRegion is right
};

/// Every change of a window's place, order or visibility makes a new arrangement: regions computed
/// for an earlier one are out of date.
void arrangementChanged();

/// The whole screen in pixels.
inline RECT screenRect() { return {0, 0, gdi::screen().width, gdi::screen().height}; }

} // namespace user
