// Showing, hiding, moving and sizing windows.
#include <algorithm>
#include <utility>
#include <vector>

#include "gdi/rect.h"
#include "user/focus.h"
#include "user/order.h"
#include "user/paint.h"
#include "user/shell_interface.h"
#include "user/table.h"
#include "user/visible.h"

namespace user {

namespace {

/// The rectangle on the screen that SetWindowPos asks for.
RECT requestedRect(const Window &window, int x, int y, int width, int height, UINT flags)
{
    RECT rect = window.rect;
    const SIZE size = window.size();
    if ((flags & SWP_NOMOVE) == 0) {
        rect.left = x + (window.parent ? window.parent->rect.left : 0);
        rect.top = y + (window.parent ? window.parent->rect.top : 0);
    }
    const bool sized = (flags & SWP_NOSIZE) == 0;
    rect.right = rect.left + (sized ? std::max(width, 0) : size.cx);
    rect.bottom = rect.top + (sized ? std::max(height, 0) : size.cy);
    return rect;
}

/// Takes a new rectangle. The window's pixels are not moved: a moved window is painted again.
void takeRect(Window &window, const RECT &rect)
{
    const SIZE before = window.size();
    const int dx = rect.left - window.rect.left;
    const int dy = rect.top - window.rect.top;
    for (Window *each : familyOf(window)) {
        OffsetRect(&each->rect, dx, dy);
        each->invalid.offset(dx, dy);
    }
    window.rect = rect;
    arrangementChanged();
    const SIZE after = window.size();
    const UINT style = window.windowClass->style;
    const bool moved = dx != 0 || dy != 0;
    const bool resized = (before.cx != after.cx && (style & CS_HREDRAW) != 0) ||
                         (before.cy != after.cy && (style & CS_VREDRAW) != 0);
    if (moved) {
        invalidateAll(window);
    } else if (resized) {
        invalidate(window, window.rect, true);
    }
}

void announceRect(HWND handle, const RECT &before)
{
    const Window *window = find(handle);
    if (window && (window->rect.left != before.left || window->rect.top != before.top)) {
        const POINT place = window->place();
        SendMessageW(handle, WM_MOVE, 0, MAKELPARAM(place.x, place.y));
    }
    window = find(handle);
    if (!window) {
        return;
    }
    const SIZE size = window->size();
    if (size.cx != before.right - before.left || size.cy != before.bottom - before.top) {
        SendMessageW(handle, WM_SIZE, SIZE_RESTORED, MAKELPARAM(size.cx, size.cy));
    }
}

/// Shows or hides a window without changing the active one.
void setShown(HWND handle, bool shown)
{
    SendMessageW(handle, WM_SHOWWINDOW, shown ? TRUE : FALSE, 0);
    Window *window = find(handle);
    if (window && window->shown() != shown) {
        const VisibilityChange change;
        window->style ^= WS_VISIBLE;
        arrangementChanged();
    }
}

/// Replaces `value` by what `compute` makes of the window and it. FALSE when either is missing.
template <class Value, class Compute>
BOOL answer(HWND window, Value *value, Compute compute)
{
    const Window *record = find(window);
    if (!record || !value) {
        return FALSE;
    }
    *value = compute(*record, *value);
    return TRUE;
}

} // namespace

} // namespace user

BOOL ShowWindow(HWND window, int command)
{
    user::Window *record = user::find(window);
    if (!record) {
        return FALSE;
    }
    const bool wasShown = record->shown();
    const bool shown = command != SW_HIDE;
    const HWND self = record->handle;
    const bool canActivate = !record->parent && record->activatable();
    if (shown && record->destroying) {
        return wasShown ? TRUE : FALSE;
    }
    if (shown != wasShown) {
        user::setShown(self, shown);
    }
    if (!shown) {
        user::leaveWindow(self);
    } else if (canActivate && command != SW_SHOWNA) {
        SetActiveWindow(self);
    }
    if (canActivate && shown != wasShown) {
        user::theShell->activeWindowChanged();
    }
    return wasShown ? TRUE : FALSE;
}

BOOL SetWindowPos(HWND window, HWND, int x, int y, int width, int height, UINT flags)
{
    user::Window *record = user::find(window);
    if (!record) {
        return FALSE;
    }
    const HWND self = record->handle;
    const RECT before = record->rect;
    const RECT rect = user::requestedRect(*record, x, y, width, height, flags);
    std::vector<std::pair<user::Window *, gdi::Region>> invalid;
    for (user::Window *each : user::familyOf(*record)) {
        invalid.emplace_back(each, each->invalid);
    }
    if (rect != before) {
        const user::VisibilityChange change;
        user::takeRect(*record, rect);
    }
    if ((flags & SWP_NOREDRAW) != 0) {
        // Puts them back after a move that must not cause painting.
        for (auto &[each, part] : invalid) {
            part.offset(rect.left - before.left, rect.top - before.top);
            each->invalid = std::move(part);
        }
    }
    user::announceRect(self, before);
    if (GetActiveWindow() == self && rect != before) {
        user::theShell->activeWindowChanged();
    }
    return TRUE;
}

BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint)
{
    return SetWindowPos(window, {}, x, y, width, height,
                        SWP_NOZORDER | SWP_NOACTIVATE | (repaint ? 0 : SWP_NOREDRAW));
}

BOOL GetWindowRect(HWND window, RECT *rect)
{
    return user::answer(window, rect, [](const user::Window &record, RECT) { return record.rect; });
}

BOOL GetClientRect(HWND window, RECT *rect)
{
    return user::answer(window, rect, [](const user::Window &record, RECT) {
        const SIZE size = record.size();
        return RECT{0, 0, size.cx, size.cy};
    });
}

BOOL ClientToScreen(HWND window, POINT *point)
{
    return user::answer(window, point, [](const user::Window &record, POINT inside) {
        return POINT{inside.x + record.rect.left, inside.y + record.rect.top};
    });
}

BOOL ScreenToClient(HWND window, POINT *point)
{
    return user::answer(window, point, [](const user::Window &record, POINT onScreen) {
        return POINT{onScreen.x - record.rect.left, onScreen.y - record.rect.top};
    });
}
