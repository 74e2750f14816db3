// What can be asked and set of a window: its relations, its values, its text.
#include <algorithm>
#include <iterator>

#include "shell/shell.h"
#include "user/manager.h"
#include "user/visible.h"

namespace user {

namespace {

HWND handleOf(const Window *window) { return window ? window->handle : HWND{}; }

/// The sibling directly behind.
HWND nextSiblingOf(const Window &window)
{
    const auto &siblings = window.parent ? window.parent->children : topLevelWindows();
    const auto next = std::next(std::find(siblings.begin(), siblings.end(), &window));
    return next == siblings.end() ? HWND{} : (*next)->handle;
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

BOOL IsWindowVisible(HWND window)
{
    const user::Window *record = user::find(window);
    return record && user::reallyShown(*record) ? TRUE : FALSE;
}

BOOL IsWindowEnabled(HWND window)
{
    const user::Window *record = user::find(window);
    return record && record->enabled() ? TRUE : FALSE;
}

HWND GetParent(HWND window)
{
    const user::Window *record = user::find(window);
    return record ? user::handleOf(record->parent ? record->parent : record->owner) : HWND{};
}

HWND GetWindow(HWND window, UINT which)
{
    const user::Window *record = user::find(window);
    if (!record) {
        return {};
    }
    switch (which) {
    case GW_HWNDNEXT:
        return user::nextSiblingOf(*record);
    case GW_OWNER:
        return user::handleOf(record->owner);
    case GW_CHILD:
        return record->children.empty() ? HWND{} : record->children.front()->handle;
    default:
        return {};
    }
}

LONG_PTR GetWindowLongW(HWND window, int index)
{
    user::Window *record = user::find(window);
    if (!record) {
        return 0;
    }
    if (const LONG_PTR *value = user::wideValue(*record, index)) {
        return *value;
    }
    switch (index) {
    case GWL_WNDPROC:
        return reinterpret_cast<LONG_PTR>(record->procedure);
    case GWL_ID:
        return record->id;
    case GWL_STYLE:
        return static_cast<LONG>(record->style);
    case GWL_EXSTYLE:
        return static_cast<LONG>(record->exStyle);
    default:
        return 0;
    }
}

LONG_PTR SetWindowLongW(HWND window, int index, LONG_PTR value)
{
    user::Window *record = user::find(window);
    if (!record) {
        return 0;
    }
    const LONG_PTR previous = GetWindowLongW(window, index);
    if (LONG_PTR *place = user::wideValue(*record, index)) {
        *place = value;
    } else if (index == GWL_WNDPROC && value != 0) {
        record->procedure = reinterpret_cast<WNDPROC>(value);
    } else if (index == GWL_ID) {
        record->id = static_cast<int>(value);
    } else if (index == GWL_STYLE) {
        user::setStyles(*record, static_cast<DWORD>(value), record->exStyle);
    } else if (index == GWL_EXSTYLE) {
        user::setStyles(*record, record->style, static_cast<DWORD>(value));
    }
    if ((index == GWL_STYLE || index == GWL_EXSTYLE) && record->handle == GetActiveWindow()) {
        shell::activeWindowChanged();
    }
    return previous;
}

BOOL SetWindowTextW(HWND window, LPCWSTR text)
{
    if (!IsWindow(window)) {
        return FALSE;
    }
    SendMessageW(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
    return TRUE;
}

int GetWindowTextW(HWND window, LPWSTR buffer, int capacity)
{
    if (!buffer || capacity <= 0) {
        return 0;
    }
    buffer[0] = 0;
    return static_cast<int>(SendMessageW(window, WM_GETTEXT, static_cast<WPARAM>(capacity),
                                         reinterpret_cast<LPARAM>(buffer)));
}

int GetWindowTextLengthW(HWND window)
{
    return static_cast<int>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0));
}
