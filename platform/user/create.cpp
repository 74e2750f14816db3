// Creating and destroying windows. Window procedures run on the way and may destroy any window, so
// each step looks its window up anew.
#include <algorithm>

#include "resources/image.h"
#include "user/focus.h"
#include "user/message.h"
#include "user/order.h"
#include "user/program_window.h"
#include "user/shell_interface.h"
#include "user/table.h"
#include "user/timer.h"

namespace user {

namespace {

RECT initialRect(const Window *parent, int x, int y, int width, int height)
{
    RECT rect = theShell->workArea();
    if (parent) {
        rect = {parent->rect.left, parent->rect.top, parent->rect.left, parent->rect.top};
        OffsetRect(&rect, x == CW_USEDEFAULT ? 0 : x, y == CW_USEDEFAULT ? 0 : y);
    } else if (x != CW_USEDEFAULT) {
        rect.left = x;
        rect.top = y == CW_USEDEFAULT ? rect.top : y;
    }
    if (width != CW_USEDEFAULT) {
        rect.right = rect.left + std::max(width, 0);
        rect.bottom = height == CW_USEDEFAULT ? rect.bottom : rect.top + std::max(height, 0);
    }
    return rect;
}

/// Sends a new window its first messages. False when it refuses or is gone.
bool announceCreation(HWND handle, CREATESTRUCTW &creation)
{
    constexpr LRESULT refusal = -1;
    if (SendMessageW(handle, WM_CREATE, 0, reinterpret_cast<LPARAM>(&creation)) == refusal) {
        DestroyWindow(handle);
        return false;
    }
    if (const Window *window = find(handle)) {
        const SIZE size = window->size();
        SendMessageW(handle, WM_SIZE, SIZE_RESTORED, MAKELPARAM(size.cx, size.cy));
    }
    if (const Window *window = find(handle)) {
        const POINT place = window->place();
        SendMessageW(handle, WM_MOVE, 0, MAKELPARAM(place.x, place.y));
    }
    return find(handle) != nullptr;
}

void destroyOwned(HWND owner)
{
    for (const HWND handle : handlesOf(topLevelWindows())) {
        const Window *window = find(handle);
        if (window && window->owner && window->owner->handle == owner) {
            DestroyWindow(handle);
        }
    }
}

/// WM_DESTROY to a window and then to its children.
void announceDestruction(HWND handle)
{
    SendMessageW(handle, WM_DESTROY, 0, 0);
    Window *window = find(handle);
    for (const HWND child : window ? handlesOf(window->children) : std::vector<HWND>{}) {
        Window *each = find(child);
        if (each && !each->destroying) {
            each->destroying = true;
            announceDestruction(child);
        }
    }
}

/// Removes a window and its children, the children first.
void release(HWND handle)
{
    Window *window = find(handle);
    while (window && !window->children.empty()) {
        release(window->children.front()->handle);
        window = find(handle);
    }
    SendMessageW(handle, WM_NCDESTROY, 0, 0);
    leaveWindow(handle);
    dropTimersOf(handle);
    dropMessagesOf(handle);
    removeWindow(handle);
}

} // namespace

} // namespace user

HWND CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR title, DWORD style, int x, int y,
                     int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                     void *parameter)
{
    const user::WindowClass *windowClass = user::findClass(className);
    user::Window *relative = user::find(parent);
    const bool child = (style & WS_CHILD) != 0;
    if (!windowClass || ((child || parent) && (!relative || relative->destroying))) {
        return {};
    }
    user::Window &record = user::addWindow();
    const HWND window = record.handle;
    record.windowClass = windowClass;
    record.procedure = windowClass->procedure;
    record.style = style & ~WS_VISIBLE;
    record.exStyle = exStyle;
    record.id = child ? static_cast<int>(menu.value) : 0;
    record.parent = child ? relative : nullptr;
    record.owner = child || !relative ? nullptr : &relative->topLevel();
    record.rect = user::initialRect(record.parent, x, y, width, height);
    record.text = resources::isNumber(title) ? u"" : title;
    user::insertWindow(record);
    user::noteCreation(record);
    const SIZE size = record.size();
    const POINT place = record.place();
    CREATESTRUCTW creation{parameter, instance, menu,  parent, size.cy,   size.cx,
                           place.y,   place.x,  style, title,  className, exStyle};
    if (!user::announceCreation(window, creation)) {
        return {};
    }
    if ((style & WS_VISIBLE) != 0) {
        ShowWindow(window, SW_SHOW);
    }
    return user::find(window) ? window : HWND{};
}

BOOL DestroyWindow(HWND window)
{
    user::Window *record = user::find(window);
    if (!record || record->destroying) {
        return FALSE;
    }
    record->destroying = true;
    const HWND doomed = record->handle;
    user::destroyOwned(doomed);
    ShowWindow(doomed, SW_HIDE);
    user::announceDestruction(doomed);
    user::release(doomed);
    return TRUE;
}
