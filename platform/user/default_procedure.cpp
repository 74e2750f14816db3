// The default window procedure.
#include "user/shell_interface.h"
#include "user/table.h"

namespace user {

namespace {

LRESULT setText(Window &window, LPCWSTR text)
{
    window.text = text ? text : u"";
    if (window.handle == GetActiveWindow()) {
        theShell->activeWindowChanged();
    }
    return TRUE;
}

LRESULT getText(const Window &window, WPARAM capacity, LPARAM buffer)
{
    auto *target = reinterpret_cast<LPWSTR>(buffer);
    if (!lstrcpynW(target, window.text.c_str(), static_cast<int>(capacity))) {
        return 0;
    }
    return static_cast<LRESULT>(std::u16string_view(target).size());
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

} // namespace

} // namespace user

LRESULT DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    user::Window *record = user::find(window);
    if (!record) {
        return 0;
    }
    switch (message) {
    case WM_CLOSE:
        DestroyWindow(window);
        return 0;
    case WM_ACTIVATE:
        if (LOWORD(wParam) != WA_INACTIVE) {
            SetFocus(window);
        }
        return 0;
    case WM_SETTEXT:
        return user::setText(*record, reinterpret_cast<LPCWSTR>(lParam));
    case WM_GETTEXT:
        return user::getText(*record, wParam, lParam);
    case WM_PAINT:
        return user::paintNothing(window);
    case WM_ERASEBKGND:
        return user::eraseBackground(*record, wParam);
    case WM_CANCELMODE:
        if (GetCapture() == window) {
            ReleaseCapture();
        }
        return 0;
    case WM_HELP:
        return SendMessageW(GetParent(window), message, wParam, lParam);
    default:
        return 0;
    }
}
