// What the controls' procedures share.
#include "controls/control.h"

namespace controls {

void notify(HWND control, UINT code)
{
    SendMessageW(GetParent(control), WM_COMMAND,
                 MAKEWPARAM(static_cast<WORD>(GetDlgCtrlID(control)), code),
                 static_cast<LPARAM>(control.value));
}

LRESULT setText(HWND control, WPARAM wParam, LPARAM lParam)
{
    const LRESULT result = DefWindowProcW(control, WM_SETTEXT, wParam, lParam);
    InvalidateRect(control, nullptr, TRUE);
    return result;
}

RECT clientRect(HWND window)
{
    RECT rect{};
    GetClientRect(window, &rect);
    return rect;
}

RECT screenRectOf(HWND window)
{
    RECT rect{};
    GetWindowRect(window, &rect);
    return rect;
}

POINT pointOf(LPARAM lParam)
{
    const auto packed = static_cast<std::uintptr_t>(lParam);
    return {static_cast<SHORT>(LOWORD(packed)), static_cast<SHORT>(HIWORD(packed))};
}

} // namespace controls
