// The controls of a dialog by their identifiers and in their tab order.
#include "controls/dialog.h"

namespace {

bool takesTab(const user::Window &control)
{
    return (control.style & WS_TABSTOP) != 0 && control.shown() && control.enabled();
}

} // namespace

HWND GetDlgItem(HWND dialog, int id)
{
    HWND item = GetWindow(dialog, GW_CHILD);
    while (item && GetDlgCtrlID(item) != id) {
        item = GetWindow(item, GW_HWNDNEXT);
    }
    return item;
}

int GetDlgCtrlID(HWND control) { return static_cast<int>(GetWindowLongW(control, GWL_ID)); }

HWND GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous)
{
    const user::Window *window = user::find(dialog);
    if (!window || window->children.empty()) {
        return {};
    }
    const auto &items = window->children;
    const std::size_t count = items.size();
    std::size_t index = previous != FALSE ? 0 : count - 1; // so that "next" is the first or last
    for (std::size_t i = 0; i < count; ++i) {
        if (items[i]->handle == control) {
            index = i;
        }
    }
    for (std::size_t step = 0; step < count; ++step) {
        index = (index + (previous != FALSE ? count - 1 : 1)) % count;
        if (takesTab(*items[index])) {
            return items[index]->handle;
        }
    }
    return {};
}

BOOL SetDlgItemTextW(HWND dialog, int id, LPCWSTR text)
{
    return SetWindowTextW(GetDlgItem(dialog, id), text);
}

UINT GetDlgItemTextW(HWND dialog, int id, LPWSTR buffer, int capacity)
{
    const HWND item = GetDlgItem(dialog, id);
    if (!item) {
        if (capacity > 0) {
            *buffer = 0;
        }
        return 0;
    }
    return static_cast<UINT>(GetWindowTextW(item, buffer, capacity));
}

LRESULT SendDlgItemMessageW(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam)
{
    return SendMessageW(GetDlgItem(dialog, id), message, wParam, lParam);
}
