// A window's relations, values and text.
#include <algorithm>
#include <iterator>
#include <utility>

#include "user/order.h"
#include "user/table.h"

namespace user {

namespace {

/// The sibling directly behind.
HWND nextSiblingOf(const Window &window)
{
    const auto &siblings = siblingsOf(window);
    const auto next = std::next(std::find(std::begin(siblings), std::end(siblings), &window));
    return next == siblings.end() ? HWND{} : (*next)->handle;
}

/// The place of a value that a dialog keeps for its procedure; null for others.
LONG_PTR *dialogValue(Window &window, int index)
{
    constexpr int indexStep = 4;
    const bool known = index == DWL_MSGRESULT || index == DWL_DLGPROC || index == DWL_USER;
    return window.isDialog && known
               ? &window.dialogData[static_cast<std::size_t>(index / indexStep)]
               : nullptr;
}

} // namespace

} // namespace user

BOOL IsWindow(HWND window) { return user::find(window) ? TRUE : FALSE; }

BOOL IsWindowVisible(HWND window)
{
    const user::Window *record = user::find(window);
    return record && record->reallyShown() ? TRUE : FALSE;
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
    switch (index) {
    case GWL_ID:
        return record->id;
    case GWL_STYLE:
        return static_cast<LONG>(record->style);
    case GWL_EXSTYLE:
        return static_cast<LONG>(record->exStyle);
    default:
        const LONG_PTR *value = user::dialogValue(*record, index);
        return value ? *value : 0;
    }
}

LONG_PTR SetWindowLongW(HWND window, int index, LONG_PTR value)
{
    user::Window *record = user::find(window);
    LONG_PTR *place = record ? user::dialogValue(*record, index) : nullptr;
    return place ? std::exchange(*place, value) : 0;
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
