// The windows behind the handles: what the window manager, the dialogs and the shell know of them.
// Programs see only handles (winuser.h).
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "gdi/region.h"
#include "gdi/screen.h"
#include "winuser.h"

namespace user {

struct WindowClass
{
    std::u16string name; ///< compared without regard to case
    WNDPROC procedure = nullptr;
    UINT style = 0;
    HBRUSH background{}; ///< none: nothing is erased
    HICON icon{};
    bool system = false; ///< one of the system's own, not of the program
};

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
    LONG_PTR userData = 0;                ///< GWL_USERDATA
    std::array<LONG_PTR, 3> dialogData{}; ///< DWL_MSGRESULT, DWL_DLGPROC, DWL_USER
    bool isDialog = false;                ///< dialogData is in use
    std::unique_ptr<WindowData> data;
    gdi::Region invalid;       ///< screen pixels; what WM_PAINT is still to draw
    bool erasePending = false; ///< the invalid part is to be erased first

    POINT origin() const override { return {rect.left, rect.top}; }
    SIZE size() const override { return {rect.right - rect.left, rect.bottom - rect.top}; }
    const gdi::Region &visible() const override;

    bool shown() const { return (style & WS_VISIBLE) != 0; }
    bool enabled() const { return (style & WS_DISABLED) == 0; }
    /// Whether it can be active: not so the bars and drop-downs of the shell.
    bool activatable() const { return (exStyle & WS_EX_NOACTIVATE) == 0; }
    Window &topLevel() { return parent ? parent->topLevel() : *this; }

    // Of the window manager alone:
    bool destroying = false;  ///< DestroyWindow has begun
    std::vector<HDC> openDCs; ///< closed with the window
    mutable gdi::Region visibleRegion;
    mutable unsigned visibleAsOf = 0; ///< the state of the windows that visibleRegion holds for
};

/// The window of a handle, its lowest bit ignored; null when there is none.
Window *find(HWND handle);

/// Every top-level window, front to back. Windows with WS_EX_TOPMOST are before all others.
const std::vector<Window *> &topLevelWindows();

/// Registers one of the system's own classes; not with a program's icon or background.
void registerSystemClass(std::u16string_view name, WNDPROC procedure);

/// The first window that the program made, or none.
HWND programWindow();

} // namespace user
