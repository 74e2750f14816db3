// Menu tracking. Its message loop takes keys and stylus for the menu and dispatches everything
// else: a timer's handler may close the menu, the bar or the program.
#include "shell/drop_down.h"

#include <algorithm>

#include "controls/control.h"
#include "controls/theme.h"
#include "gdi/screen.h"
#include "shell/menu_bar.h"
#include "user/menu.h"

namespace shell {

namespace {

constexpr int itemHeight = 20;
constexpr int separatorHeight = 7;
constexpr int padding = 12;
constexpr int leastWidth = 100;

/// The drop-down that is open, while its loop runs.
struct Tracking
{
    HWND bar{};
    int button = -1;
    HMENU menu{};
    HWND window{};
    std::vector<RECT> places; ///< of the items, pixels of the drop-down
    int marked = -1;          ///< the item chosen by stylus or keys so far
    bool stylusDown = true;   ///< it went down on the bar or the drop-down
    bool done = false;
    UINT command = 0; ///< chosen
};

Tracking *tracking = nullptr;

const std::vector<user::MenuItem> &itemsOf(HMENU menu)
{
    static const std::vector<user::MenuItem> none;
    const user::Menu *found = user::findMenu(menu);
    return found ? found->items : none;
}

// Places and looks ---------------------------------------------------------------------------

/// Places the items; returns the rectangle of the drop-down, above its button.
RECT layOut(Tracking &state, const RECT &button)
{
    LONG width = leastWidth;
    for (const user::MenuItem &item : itemsOf(state.menu)) {
        const SIZE text = theme::measureText(item.text, gdi::screen().width, DT_SINGLELINE);
        width = std::max(width, text.cx + 2 * padding);
    }
    LONG bottom = 1;
    for (const user::MenuItem &item : itemsOf(state.menu)) {
        const LONG top = bottom;
        bottom += item.separator() ? separatorHeight : itemHeight;
        state.places.push_back({1, top, width - 1, bottom});
    }
    const LONG left = std::min<LONG>(button.left, gdi::screen().width - width);
    return {left, button.top - bottom - 1, left + width, button.top};
}

void paintItem(HDC dc, const user::MenuItem &item, RECT rect, bool marked)
{
    if (item.separator()) {
        const LONG y = (rect.top + rect.bottom) / 2;
        theme::fill(dc, {rect.left + 3, y, rect.right - 3, y + 1}, theme::lineSoft);
        return;
    }
    if (marked) {
        theme::fill(dc, rect, theme::accent);
    }
    rect.left += padding - 1;
    theme::drawText(dc, item.text, rect, DT_VCENTER | DT_SINGLELINE,
                    theme::textColour(!item.grayed(), marked));
}

void paint(HWND window)
{
    const theme::Painting painting(window);
    const RECT rect = controls::clientRect(window);
    theme::fill(painting.dc(), rect, theme::page);
    theme::drawFrame(painting.dc(), rect, theme::frame);
    if (!tracking || tracking->window != window) {
        return;
    }
    const auto &items = itemsOf(tracking->menu);
    for (std::size_t i = 0; i < items.size(); ++i) {
        paintItem(painting.dc(), items[i], tracking->places[i],
                  static_cast<int>(i) == tracking->marked);
    }
}

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_PAINT) {
        paint(window);
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

// Opening and closing ------------------------------------------------------------------------

RECT buttonRect(HWND bar, int button)
{
    RECT rect = buttonsOf(bar)[static_cast<std::size_t>(button)].rect;
    const RECT screen = controls::screenRectOf(bar);
    OffsetRect(&rect, screen.left, screen.top);
    rect.top = screen.top;
    return rect;
}

void hide(Tracking &state)
{
    const HWND window = state.window;
    state.window = {};
    state.places.clear();
    DestroyWindow(window);
    markButton(state.bar, -1);
}

void finish(Tracking &state, UINT command)
{
    state.done = true;
    state.command = command;
    hide(state);
}

/// Sends WM_INITMENUPOPUP, on which the program may gray items or even close the bar, and shows the
/// drop-down.
void open(Tracking &state, int button)
{
    hide(state);
    state.button = button;
    state.menu = buttonsOf(state.bar)[static_cast<std::size_t>(button)].dropDown;
    state.marked = -1;
    SendMessageW(GetParent(state.bar), WM_INITMENUPOPUP, state.menu.value, button);
    if (state.done || IsWindowVisible(state.bar) == FALSE) {
        state.done = true;
        return;
    }
    const RECT rect = layOut(state, buttonRect(state.bar, button));
    state.window = CreateWindowExW(WS_EX_TOPMOST | WS_EX_NOACTIVATE, u"DropDown", u"", WS_POPUP,
                                   rect.left, rect.top, rect.right - rect.left,
                                   rect.bottom - rect.top, state.bar, {}, {}, nullptr);
    ShowWindow(state.window, SW_SHOWNA);
    markButton(state.bar, button);
}

// Input --------------------------------------------------------------------------------------

void mark(Tracking &state, int index)
{
    if (state.marked != index) {
        state.marked = index;
        InvalidateRect(state.window, nullptr, FALSE);
    }
}

bool canBeChosen(const user::MenuItem &item) { return !item.separator() && !item.grayed(); }

void choose(Tracking &state, int index)
{
    const auto &items = itemsOf(state.menu);
    const auto place = static_cast<std::size_t>(index);
    if (index >= 0 && place < items.size() && canBeChosen(items[place])) {
        finish(state, items[place].id);
    }
}

/// The item at a point of the screen, or -1.
int itemAt(const Tracking &state, POINT point)
{
    const RECT window = controls::screenRectOf(state.window);
    const POINT inside{point.x - window.left, point.y - window.top};
    const auto found =
        std::find_if(std::begin(state.places), std::end(state.places),
                     [inside](const RECT &place) { return PtInRect(&place, inside) != FALSE; });
    return found == state.places.end() ? -1 : static_cast<int>(found - state.places.begin());
}

/// The button of the bar at a point of the screen, or -1.
int buttonAt(const Tracking &state, POINT point)
{
    for (std::size_t i = 0; i < buttonsOf(state.bar).size(); ++i) {
        const RECT rect = buttonRect(state.bar, static_cast<int>(i));
        if (PtInRect(&rect, point) != FALSE) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

bool onDropDown(const Tracking &state, POINT point)
{
    const RECT window = controls::screenRectOf(state.window);
    return PtInRect(&window, point) != FALSE;
}

void stylusDown(Tracking &state, POINT point)
{
    state.stylusDown = true;
    SetCapture(state.bar);
    if (onDropDown(state, point)) {
        mark(state, itemAt(state, point));
        return;
    }
    const int button = buttonAt(state, point);
    if (button >= 0 && button != state.button) {
        open(state, button);
    } else {
        finish(state, 0);
    }
}

void stylusUp(Tracking &state, POINT point)
{
    state.stylusDown = false;
    ReleaseCapture();
    if (onDropDown(state, point)) {
        choose(state, itemAt(state, point));
    } else if (buttonAt(state, point) != state.button) {
        finish(state, 0);
    }
}

/// Moves the mark to the next item that can be chosen, up (-1) or down (1), wrapping around.
void moveMark(Tracking &state, int step)
{
    const auto &items = itemsOf(state.menu);
    const int count = static_cast<int>(items.size());
    int index = state.marked < 0 && step < 0 ? count : state.marked;
    for (int i = 0; i < count; ++i) {
        index = (index + step + count) % count;
        if (canBeChosen(items[static_cast<std::size_t>(index)])) {
            mark(state, index);
            return;
        }
    }
}

void moveToButton(Tracking &state, int step)
{
    const int count = static_cast<int>(buttonsOf(state.bar).size());
    open(state, (state.button + step + count) % count);
    moveMark(state, 1);
}

void key(Tracking &state, WPARAM code)
{
    switch (code) {
    case VK_UP:
        moveMark(state, -1);
        break;
    case VK_DOWN:
        moveMark(state, 1);
        break;
    case VK_LEFT:
        moveToButton(state, -1);
        break;
    case VK_RIGHT:
        moveToButton(state, 1);
        break;
    case VK_RETURN:
        choose(state, state.marked);
        break;
    case VK_ESCAPE:
    case VK_APP1: // the application buttons close a menu, too
    case VK_APP2:
    case VK_APP3:
    case VK_APP4:
        finish(state, 0);
        break;
    default:
        break;
    }
}

/// Handles keys and stylus, which are the menu's alone while it is open; false for other messages.
bool handleInput(Tracking &state, const MSG &message)
{
    POINT point = controls::pointOf(message.lParam);
    ClientToScreen(message.hwnd, &point);
    switch (message.message) {
    case WM_LBUTTONDOWN:
        stylusDown(state, point);
        return true;
    case WM_MOUSEMOVE:
        if (state.stylusDown) {
            mark(state, itemAt(state, point));
        }
        return true;
    case WM_LBUTTONUP:
        stylusUp(state, point);
        return true;
    case WM_KEYDOWN:
        key(state, message.wParam);
        return true;
    case WM_KEYUP:
    case WM_CHAR:
        return true;
    default:
        return false;
    }
}

} // namespace

void registerDropDown()
{
    tracking = nullptr;
    user::registerSystemClass(u"DropDown", procedure);
}

void trackMenu(HWND bar, int button)
{
    if (tracking) {
        return;
    }
    const HWND parent = GetParent(bar);
    Tracking state;
    state.bar = bar;
    tracking = &state;
    SetCapture(bar); // stylus messages come from anywhere on the screen
    open(state, button);
    while (!state.done && IsWindow(state.bar) != FALSE) {
        MSG message;
        if (GetMessageW(&message, {}, 0, 0) == 0) {
            PostQuitMessage(static_cast<int>(message.wParam)); // for the outer loop
            break;
        }
        if (!handleInput(state, message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    hide(state);
    tracking = nullptr;
    if (state.command != 0) {
        PostMessageW(parent, WM_COMMAND, MAKEWPARAM(static_cast<WORD>(state.command), 0), 0);
    }
}

void cancelMenu()
{
    if (tracking && !tracking->done) {
        finish(*tracking, 0);
        PostMessageW(tracking->bar, WM_NULL, 0, 0); // its loop may be waiting for a message
    }
}

bool menuIsOpen() { return tracking && tracking->window; }

std::optional<ItemPlace> openItem(UINT command)
{
    if (!menuIsOpen()) {
        return std::nullopt;
    }
    const RECT window = controls::screenRectOf(tracking->window);
    const auto &items = itemsOf(tracking->menu);
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (items[i].id == command && !items[i].separator()) {
            RECT rect = tracking->places[i];
            OffsetRect(&rect, window.left, window.top);
            return ItemPlace{rect, items[i].grayed()};
        }
    }
    return std::nullopt;
}

} // namespace shell
