// The title bar is a window that never becomes active.
#include "shell/title_bar.h"

#include "controls/control.h"
#include "controls/dialog.h"
#include "controls/theme.h"
#include "gdi/screen.h"

namespace shell {

namespace {

constexpr int gleamCentre = 13;
constexpr int captionLeft = 26;
constexpr int okRadius = 10;

struct TitleBar final : user::WindowData
{
    HWND active{}; ///< whose caption is shown
    std::u16string caption;
    bool okButton = false;
    bool tracking = false; ///< the stylus went down on the OK button
    bool pressed = false;
};

HWND titleBar{};

TitleBar *data() { return controls::dataOf<TitleBar>(titleBar); }

/// A page without a caption shows its owner's, and so does a message box, which draws its own
/// itself.
std::u16string captionFor(HWND active)
{
    const user::Window *window = user::find(active);
    const auto standsBelow = [](const user::Window &page) {
        const controls::DialogData *dialog = controls::dialogData(page.handle);
        return page.text.empty() || (dialog && dialog->ownCaption);
    };
    while (window && window->owner && standsBelow(*window)) {
        window = window->owner;
    }
    return window ? window->text : std::u16string{};
}

bool wantsOkButton(HWND window)
{
    const controls::DialogData *dialog = controls::dialogData(window);
    const auto exStyle = static_cast<DWORD>(GetWindowLongW(window, GWL_EXSTYLE));
    return (dialog && dialog->doneButton) || (exStyle & WS_EX_CAPTIONOKBTN) != 0;
}

POINT okCentre() { return {gdi::screen().width - okRadius - 4, titleBarHeight / 2 - 1}; }

RECT okArea()
{
    const POINT centre = okCentre();
    return {centre.x - okRadius - 3, 0, gdi::screen().width, titleBarHeight};
}

void paintOkButton(HDC dc, bool pressed)
{
    const POINT centre = okCentre();
    theme::drawDisc(dc, centre, okRadius, theme::titleText);
    theme::drawDisc(dc, centre, okRadius - 1, pressed ? theme::titleText : theme::titleLower);
    theme::drawText(dc, u"ok",
                    {centre.x - okRadius + 1, 0, centre.x + okRadius + 2, titleBarHeight - 2},
                    DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX,
                    pressed ? theme::titleLower : theme::titleText, theme::Weight::Bold);
}

void paint(HWND window, const TitleBar &bar)
{
    const theme::Painting painting(window);
    const HDC dc = painting.dc();
    const LONG width = controls::clientRect(window).right;
    const LONG middle = titleBarHeight / 2 - 1;
    theme::fill(dc, {0, 0, width, middle}, theme::titleUpper);
    theme::fill(dc, {0, middle, width, titleBarHeight - 1}, theme::titleLower);
    theme::fill(dc, {0, titleBarHeight - 1, width, titleBarHeight}, theme::titleEdge);
    theme::drawGleam(dc, {gleamCentre, middle}, theme::gleam);
    theme::drawText(dc, bar.caption,
                    {captionLeft, 0, bar.okButton ? okArea().left - 2 : width, titleBarHeight - 1},
                    DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX, theme::titleText,
                    theme::Weight::Bold);
    if (bar.okButton) {
        paintOkButton(dc, bar.pressed);
    }
}

void stylus(HWND window, TitleBar &bar, UINT message, LPARAM lParam)
{
    const RECT area = okArea();
    const bool inside = bar.okButton && PtInRect(&area, controls::pointOf(lParam)) != FALSE;
    if (message == WM_LBUTTONDOWN) {
        SetCapture(window);
        bar.tracking = inside;
    }
    const bool clicked = message == WM_LBUTTONUP && bar.tracking && inside;
    const bool pressed = message != WM_LBUTTONUP && bar.tracking && inside;
    bar.tracking = bar.tracking && message != WM_LBUTTONUP;
    if (bar.pressed != pressed) {
        bar.pressed = pressed;
        InvalidateRect(window, nullptr, FALSE);
    }
    if (clicked) {
        SendMessageW(bar.active, WM_COMMAND, IDOK, 0);
    }
}

LRESULT handle(HWND window, TitleBar &bar, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_PAINT:
        paint(window, bar);
        return 0;
    case WM_LBUTTONDOWN:
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
        stylus(window, bar, message, lParam);
        return 0;
    default:
        return DefWindowProcW(window, message, wParam, lParam);
    }
}

} // namespace

void createTitleBar()
{
    user::registerSystemClass(u"TitleBar", controls::procedureWith<TitleBar, handle>);
    titleBar =
        CreateWindowExW(WS_EX_TOPMOST | WS_EX_NOACTIVATE, u"TitleBar", u"", WS_POPUP | WS_VISIBLE,
                        0, 0, gdi::screen().width, titleBarHeight, {}, {}, {}, nullptr);
}

void updateTitleBar()
{
    TitleBar *bar = data();
    if (!bar) {
        return;
    }
    // While another program is in front, the bar keeps what it shows.
    if (const HWND active = GetActiveWindow()) {
        bar->active = active;
    }
    std::u16string caption = captionFor(bar->active);
    const bool okButton = wantsOkButton(bar->active);
    if (caption != bar->caption || okButton != bar->okButton) {
        bar->caption = std::move(caption);
        bar->okButton = okButton;
        InvalidateRect(titleBar, nullptr, FALSE);
    }
}

void placeTitleBar()
{
    MoveWindow(titleBar, 0, 0, gdi::screen().width, titleBarHeight, TRUE);
    InvalidateRect(titleBar, nullptr, FALSE);
}

std::optional<RECT> okButtonRect()
{
    const TitleBar *bar = data();
    return bar && bar->okButton ? std::optional(okArea()) : std::nullopt;
}

} // namespace shell
