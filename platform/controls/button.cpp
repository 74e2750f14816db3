// BUTTON: push buttons, pressed by the stylus or the space bar. Enter presses the default one,
// which is the dialog's business.
#include "controls/control.h"
#include "controls/theme.h"

namespace controls {

namespace {

constexpr DWORD typeMask = 0x0F; ///< the style bits with the kind of button

struct ButtonData final : user::WindowData
{
    bool pressed = false;  ///< drawn pushed in
    bool tracking = false; ///< the stylus went down on it
    bool key = false;      ///< the space bar went down on it
};

bool isDefault(HWND button)
{
    return (static_cast<DWORD>(GetWindowLongW(button, GWL_STYLE)) & typeMask) == BS_DEFPUSHBUTTON;
}

void setPressed(HWND button, ButtonData &data, bool pressed)
{
    if (data.pressed != pressed) {
        data.pressed = pressed;
        InvalidateRect(button, nullptr, FALSE);
    }
}

void paint(HWND button, const ButtonData &data)
{
    const theme::Painting painting(button);
    const RECT rect = clientRect(button);
    theme::fill(painting.dc(), rect, theme::page);
    const bool enabled = IsWindowEnabled(button) != FALSE;
    const COLORREF outline = !enabled ? theme::lineSoft : theme::frame;
    theme::drawFace(painting.dc(), rect, outline, data.pressed);
    if (isDefault(button) && enabled) {
        RECT inner = rect;
        InflateRect(&inner, -1, -1);
        theme::drawFrame(painting.dc(), inner, theme::accent);
    }
    theme::drawText(painting.dc(), user::find(button)->text, rect,
                    DT_CENTER | DT_VCENTER | DT_SINGLELINE,
                    theme::textColour(enabled, data.pressed));
}

LRESULT stylus(HWND button, ButtonData &data, UINT message, LPARAM lParam)
{
    const RECT rect = clientRect(button);
    const bool inside = PtInRect(&rect, pointOf(lParam)) != FALSE;
    switch (message) {
    case WM_LBUTTONDOWN:
        data.tracking = true;
        SetCapture(button);
        setPressed(button, data, true);
        SetFocus(button);
        break;
    case WM_MOUSEMOVE:
        setPressed(button, data, data.tracking && inside);
        break;
    default: // WM_LBUTTONUP
        const bool clicked = data.tracking && inside;
        data.tracking = false;
        setPressed(button, data, false);
        ReleaseCapture();
        if (clicked) {
            notify(button, BN_CLICKED);
        }
        break;
    }
    return 0;
}

LRESULT spaceBar(HWND button, ButtonData &data, bool down)
{
    const bool clicked = data.key && !down;
    data.key = down;
    setPressed(button, data, down);
    if (clicked) {
        notify(button, BN_CLICKED);
    }
    return 0;
}

/// Focus, capture or the enabled state has changed.
LRESULT stateChanged(HWND button, ButtonData &data, UINT message)
{
    if (message == WM_KILLFOCUS || message == WM_CAPTURECHANGED) {
        data = {};
    }
    InvalidateRect(button, nullptr, FALSE);
    return 0;
}

LRESULT setStyle(HWND button, WPARAM style)
{
    user::Window &window = *user::find(button);
    window.style = (window.style & ~typeMask) | (static_cast<DWORD>(style) & typeMask);
    InvalidateRect(button, nullptr, FALSE);
    return 0;
}

LRESULT handle(HWND button, ButtonData &data, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_PAINT:
        paint(button, data);
        return 0;
    case WM_LBUTTONDOWN:
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
        return stylus(button, data, message, lParam);
    case WM_KEYDOWN:
    case WM_KEYUP:
        return wParam == VK_SPACE ? spaceBar(button, data, message == WM_KEYDOWN) : 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
    case WM_ENABLE:
    case WM_CAPTURECHANGED:
        return stateChanged(button, data, message);
    case WM_SETTEXT:
        return setText(button, wParam, lParam);
    case WM_GETDLGCODE:
        return DLGC_BUTTON | (isDefault(button) ? DLGC_DEFPUSHBUTTON : DLGC_UNDEFPUSHBUTTON);
    case BM_SETSTYLE:
        return setStyle(button, wParam);
    default:
        return DefWindowProcW(button, message, wParam, lParam);
    }
}

} // namespace

void registerButton() { user::registerSystemClass(u"BUTTON", procedureWith<ButtonData, handle>); }

} // namespace controls
