// What can be asked and set of a window: its relations, its values, its text.
#include <algorithm>
#include <cstring>

#include "shell/shell.h"
#include "user/manager.h"
#include "user/visible.h"

namespace user {

namespace {

HWND handleOf(const Window *window) { return window ? window->handle : HWND{}; }

/// The sibling so many places behind.
HWND siblingOf(const Window &window, std::ptrdiff_t places)
{
    const auto &siblings = window.parent ? window.parent->children : topLevelWindows();
    const auto index = std::ranges::find(siblings, &window) - siblings.begin() + places;
    const bool inside = index >= 0 && index < std::ssize(siblings);
    return inside ? siblings[static_cast<std::size_t>(index)]->handle : HWND{};
}

/// The place of a value that is kept as an address or a number of that width; null for others.
LONG_PTR *wideValue(Window &window, int index)
{
    if (index == GWL_USERDATA) {
        return &window.userData;
    }
    constexpr int indexStep = 4;
    const bool ofDialog =
        window.isDialog && (index == DWL_MSGRESULT || index == DWL_DLGPROC || index == DWL_USER);
    return ofDialog ? &window.dialogData[static_cast<std::size_t>(index / indexStep)] : nullptr;
}

void setStyles(Window &window, DWORD style, DWORD exStyle)
{
    const VisibilityChange change;
    window.style = style;
    window.exStyle = exStyle;
    visibilityChanged();
}

} // namespace

} // namespace user

BOOL IsWindow(HWND window) { return user::find(window) ? TRUE : FALSE; }

BOOL IsWindowVisible(HWND handle)
{
    const user::Window *window = user::find(handle);
    return window && user::reallyShown(*window) ? TRUE : FALSE;
}

BOOL IsWindowEnabled(HWND handle)
{
    const user::Window *window = user::find(handle);
    return window && window->enabled() ? TRUE : FALSE;
}

HWND GetParent(HWND handle)
{
    const user::Window *window = user::find(handle);
    return window ? user::handleOf(window->parent ? window->parent : window->owner) : HWND{};
}

HWND GetWindow(HWND handle, UINT which)
{
    const user::Window *window = user::find(handle);
    if (!window) {
        return {};
    }
    switch (which) {
    case GW_HWNDNEXT:
        return user::siblingOf(*window, 1);
    case GW_HWNDPREV:
        return user::siblingOf(*window, -1);
    case GW_OWNER:
        return user::handleOf(window->owner);
    case GW_CHILD:
        return window->children.empty() ? HWND{} : window->children.front()->handle;
    default:
        return {};
    }
}

LONG_PTR GetWindowLongW(HWND handle, int index)
{
    user::Window *window = user::find(handle);
    if (!window) {
        return 0;
    }
    if (const LONG_PTR *value = user::wideValue(*window, index)) {
        return *value;
    }
    switch (index) {
    case GWL_WNDPROC:
        return reinterpret_cast<LONG_PTR>(window->procedure);
    case GWL_ID:
        return window->id;
    case GWL_STYLE:
        return static_cast<LONG>(window->style);
    case GWL_EXSTYLE:
        return static_cast<LONG>(window->exStyle);
    default:
        return 0;
    }
}

LONG_PTR SetWindowLongW(HWND handle, int index, LONG_PTR value)
{
    user::Window *window = user::find(handle);
    if (!window) {
        return 0;
    }
    const LONG_PTR previous = GetWindowLongW(handle, index);
    if (LONG_PTR *place = user::wideValue(*window, index)) {
        *place = value;
    } else if (index == GWL_WNDPROC && value != 0) {
        window->procedure = reinterpret_cast<WNDPROC>(value);
    } else if (index == GWL_ID) {
        window->id = static_cast<int>(value);
    } else if (index == GWL_STYLE) {
        user::setStyles(*window, static_cast<DWORD>(value), window->exStyle);
    } else if (index == GWL_EXSTYLE) {
        user::setStyles(*window, window->style, static_cast<DWORD>(value));
    }
    if ((index == GWL_STYLE || index == GWL_EXSTYLE) && window->handle == GetActiveWindow()) {
        shell::activeWindowChanged();
    }
    return previous;
}

BOOL SetWindowTextW(HWND handle, LPCWSTR text)
{
    if (!IsWindow(handle)) {
        return FALSE;
    }
    SendMessageW(handle, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
    return TRUE;
}

int GetWindowTextW(HWND handle, LPWSTR buffer, int capacity)
{
    if (!buffer || capacity <= 0) {
        return 0;
    }
    buffer[0] = 0;
    return static_cast<int>(SendMessageW(handle, WM_GETTEXT, static_cast<WPARAM>(capacity),
                                         reinterpret_cast<LPARAM>(buffer)));
}

int GetWindowTextLengthW(HWND handle)
{
    return static_cast<int>(SendMessageW(handle, WM_GETTEXTLENGTH, 0, 0));
}

int GetClassNameW(HWND handle, LPWSTR buffer, int capacity)
{
    const user::Window *window = user::find(handle);
    if (!window || !buffer || capacity <= 0) {
        return 0;
    }
    lstrcpynW(buffer, window->windowClass->name.c_str(), capacity);
    return lstrlenW(buffer);
}
