// Menu bars are topmost windows, owned by the windows they belong to.
#include "shell/menu_bar.h"

#include "aygshell.h"
#include "controls/control.h"
#include "controls/theme.h"
#include "gdi/screen.h"
#include "user/order.h"

namespace shell {

namespace {

constexpr std::u16string_view className = u"MenuBar";
constexpr int buttonPadding = 9; ///< on either side of a button's text

ButtonPressed buttonPressed = nullptr;

struct MenuBar final : user::WindowData
{
    HMENU menu{};
    std::vector<MenuBarButton> buttons;
    int marked = -1;
};

MenuBar *dataOf(HWND bar) { return controls::dataOf<MenuBar>(bar); }

std::vector<HWND> allBars()
{
    std::vector<HWND> bars;
    for (const user::Window *window : user::topLevelWindows()) {
        if (dataOf(window->handle)) {
            bars.push_back(window->handle);
        }
    }
    return bars;
}

/// Whether `parent` is the active window, or owns it with nothing in between that covers the bar.
bool belongsInSight(const user::Window &bar)
{
    const user::Window *window = user::find(GetActiveWindow());
    while (window && window != bar.owner) {
        RECT common;
        if (window->shown() && IntersectRect(&common, &window->rect, &bar.rect) != FALSE) {
            return false;
        }
        window = window->owner;
    }
    return window && window->shown();
}

void layOutButtons(MenuBar &bar)
{
    LONG x = 2;
    for (MenuBarButton &button : bar.buttons) {
        const SIZE text = theme::measureText(button.text, gdi::screen().width,
                                             DT_SINGLELINE | DT_NOPREFIX, theme::Weight::Bold);
        button.rect = {x, 1, x + text.cx + 2 * buttonPadding, menuBarHeight};
        x = button.rect.right;
    }
}

void paint(HWND window, const MenuBar &bar)
{
    const theme::Painting painting(window);
    const HDC dc = painting.dc();
    const LONG width = controls::clientRect(window).right;
    theme::fill(dc, {0, 0, width, 1}, theme::line);
    theme::fill(dc, {0, 1, width, menuBarHeight / 2}, theme::faceUpper);
    theme::fill(dc, {0, menuBarHeight / 2, width, menuBarHeight}, theme::faceLower);
    for (std::size_t i = 0; i < bar.buttons.size(); ++i) {
        const MenuBarButton &button = bar.buttons[i];
        const bool marked = static_cast<int>(i) == bar.marked;
        if (marked) {
            theme::fill(dc, button.rect, theme::accent);
        }
        theme::drawText(dc, button.text, button.rect,
                        DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX,
                        theme::textColour(true, marked), theme::Weight::Bold);
    }
}

void stylusDown(HWND window, const MenuBar &bar, POINT point)
{
    if (IsWindowEnabled(GetParent(window)) == FALSE) {
        return;
    }
    for (std::size_t i = 0; i < bar.buttons.size(); ++i) {
        if (PtInRect(&bar.buttons[i].rect, point) != FALSE) {
            buttonPressed(window, static_cast<int>(i));
            return;
        }
    }
}

LRESULT dropDownOf(const MenuBar &bar, LPARAM command)
{
    for (const MenuBarButton &button : bar.buttons) {
        if (static_cast<LPARAM>(button.command) == command) {
            return static_cast<LRESULT>(button.dropDown.value);
        }
    }
    return 0;
}

LRESULT handle(HWND window, const MenuBar &bar, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_PAINT:
        paint(window, bar);
        return 0;
    case WM_LBUTTONDOWN:
        stylusDown(window, bar, controls::pointOf(lParam));
        return 0;
    case SHCMBM_GETMENU:
        return static_cast<LRESULT>(bar.menu.value);
    case SHCMBM_GETSUBMENU:
        return dropDownOf(bar, lParam);
    case WM_DESTROY:
        DestroyMenu(bar.menu);
        return 0;
    default:
        return DefWindowProcW(window, message, wParam, lParam);
    }
}

} // namespace

void registerMenuBar(ButtonPressed pressed)
{
    buttonPressed = pressed;
    user::registerSystemClass(className, controls::procedureWith<MenuBar, handle>);
}

HWND createMenuBar(HWND parent, HMENU menu, std::vector<MenuBarButton> buttons)
{
    const gdi::Screen &screen = gdi::screen();
    const HWND bar = CreateWindowExW(WS_EX_TOPMOST | WS_EX_NOACTIVATE, className.data(), u"",
                                     WS_POPUP, 0, screen.height - menuBarHeight, screen.width,
                                     menuBarHeight, parent, {}, {}, nullptr);
    if (MenuBar *data = dataOf(bar)) {
        data->menu = menu;
        data->buttons = std::move(buttons);
        layOutButtons(*data);
        updateMenuBars();
    }
    return bar;
}

void updateMenuBars()
{
    if (!GetActiveWindow()) {
        return; // another program is in front and nobody sees the bars
    }
    for (const HWND bar : allBars()) {
        const user::Window *window = user::find(bar);
        const bool show = window && belongsInSight(*window);
        if (window && show != window->shown()) {
            ShowWindow(bar, show ? SW_SHOWNA : SW_HIDE);
        }
    }
}

void placeMenuBars()
{
    for (const HWND bar : allBars()) {
        MoveWindow(bar, 0, gdi::screen().height - menuBarHeight, gdi::screen().width, menuBarHeight,
                   TRUE);
        InvalidateRect(bar, nullptr, FALSE);
    }
}

HWND shownMenuBar()
{
    return user::handleOf(user::firstOf(user::topLevelWindows(), [](const user::Window *each) {
        return each->shown() && dataOf(each->handle);
    }));
}

const std::vector<MenuBarButton> &buttonsOf(HWND bar)
{
    static const std::vector<MenuBarButton> none;
    const MenuBar *data = dataOf(bar);
    return data ? data->buttons : none;
}

void markButton(HWND bar, int index)
{
    MenuBar *data = dataOf(bar);
    if (data && data->marked != index) {
        data->marked = index;
        InvalidateRect(bar, nullptr, FALSE);
    }
}

} // namespace shell
