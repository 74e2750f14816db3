// What every window does with a message that it does not care about.
#include "shell/shell.h"
#include "user/manager.h"

namespace user {

namespace {

LRESULT setText(Window &window, LPCWSTR text)
{
    window.text = text ? text : u"";
    if (window.handle == GetActiveWindow()) {
        shell::activeWindowChanged();
    }
    return TRUE;
}

LRESULT getText(const Window &window, WPARAM capacity, LPARAM buffer)
{
    auto *target = reinterpret_cast<LPWSTR>(buffer);
    if (!lstrcpynW(target, window.text.c_str(), static_cast<int>(capacity))) {
        return 0;
    }
    return lstrlenW(target);
}

LRESULT eraseBackground(const Window &window, WPARAM dc)
{
    const HBRUSH brush = window.windowClass->background;
    if (!brush) {
        return FALSE;
    }
    const SIZE size = window.size();
    const RECT client{0, 0, size.cx, size.cy};
    FillRect({static_cast<std::uint32_t>(dc)}, &client, brush);
    return TRUE;
}

LRESULT paintNothing(HWND window)
{
    PAINTSTRUCT paint;
    BeginPaint(window, &paint);
    EndPaint(window, &paint);
    return 0;
}

/// The colours of a control's text, for its parent to answer with.
LRESULT controlColours(WPARAM dc)
{
    const HDC target{static_cast<std::uint32_t>(dc)};
    SetTextColor(target, RGB(0, 0, 0));
    SetBkColor(target, RGB(255, 255, 255));
    return static_cast<LRESULT>(GetStockObject(WHITE_BRUSH).value);
}

} // namespace

} // namespace user

LRESULT DefWindowProcW(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    user::Window *window = user::find(handle);
    if (!window) {
        return 0;
    }
    switch (message) {
    case WM_CLOSE:
        DestroyWindow(handle);
        return 0;
    case WM_ACTIVATE:
        if (LOWORD(wParam) != WA_INACTIVE) {
            SetFocus(handle);
        }
        return 0;
    case WM_SETTEXT:
        return user::setText(*window, reinterpret_cast<LPCWSTR>(lParam));
    case WM_GETTEXT:
        return user::getText(*window, wParam, lParam);
    case WM_GETTEXTLENGTH:
        return static_cast<LRESULT>(window->text.size());
    case WM_PAINT:
        return user::paintNothing(handle);
    case WM_ERASEBKGND:
        return user::eraseBackground(*window, wParam);
    case WM_CTLCOLORSTATIC:
        return user::controlColours(wParam);
    case WM_CANCELMODE:
        if (GetCapture() == handle) {
            ReleaseCapture();
        }
        return 0;
    case WM_HELP:
        return SendMessageW(GetParent(handle), message, wParam, lParam);
    default:
        return 0;
    }
}
