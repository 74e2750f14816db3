// The soft keyboard types into whatever has the focus: characters as WM_CHAR, the other keys as a
// real keyboard's.
#include "shell/soft_keyboard.h"

#include <array>
#include <utility>
#include <vector>

#include "controls/control.h"
#include "controls/theme.h"
#include "gdi/screen.h"
#include "shell/menu_bar.h"

namespace shell {

namespace {

constexpr int rowHeight = 17;
constexpr int rowCount = 5;
constexpr int panelHeight = rowCount * rowHeight + 2;
constexpr int unitsAcross = 24; ///< half keys in a row

/// A key: a character and one with Shift, or a virtual key.
struct Key
{
    WORD code = 0;               ///< the virtual key; 0 for a character
    const char16_t *label = u""; ///< of a virtual key
    int units = 2;               ///< width in half keys
    char16_t plain = 0;
    char16_t shifted = 0;
};

using Row = std::vector<Key>;

/// A row's characters, as many shifted as plain ones, between two special keys or none.
Row makeRow(Row row, std::u16string_view plain, std::u16string_view shifted, const Row &after)
{
    for (std::size_t i = 0; i < plain.size(); ++i) {
        row.push_back({0, u"", 2, plain[i], shifted[i]});
    }
    row.insert(row.end(), after.begin(), after.end());
    return row;
}

const std::array<Row, rowCount> &rows()
{
    static const std::array<Row, rowCount> all = {
        makeRow({}, u"1234567890-", u"!@#$%^&*()_", {{VK_BACK, u"\x2190", 2}}),
        makeRow({{VK_TAB, u"Tab", 4}}, u"qwertyuiop", u"QWERTYUIOP", {}),
        makeRow({}, u"asdfghjkl'", u"ASDFGHJKL\"", {{VK_RETURN, u"Enter", 4}}),
        makeRow({{VK_SHIFT, u"Shift", 4}}, u"zxcvbnm,.?", u"ZXCVBNM;:/", {}),
        Row{{VK_LEFT, u"<", 4},
            {VK_RIGHT, u">", 4},
            {0, u"", 12, u' ', u' '},
            {VK_DELETE, u"Del", 4}}};
    return all;
}

struct SoftKeyboard final : user::WindowData
{
    bool shift = false;           ///< the next character is a shifted one
    const Key *pressed = nullptr; ///< under the stylus
};

HWND panel{};

SoftKeyboard *data() { return controls::dataOf<SoftKeyboard>(panel); }

// Places and looks ---------------------------------------------------------------------------

/// Calls `visit` with each key and its rectangle.
template <class Visit>
void forEachKey(Visit visit)
{
    const LONG width = gdi::screen().width;
    for (int y = 0; y < rowCount; ++y) {
        int units = 0;
        for (const Key &key : rows()[static_cast<std::size_t>(y)]) {
            const LONG top = 1 + y * rowHeight;
            visit(key, RECT{units * width / unitsAcross, top,
                            (units + key.units) * width / unitsAcross, top + rowHeight});
            units += key.units;
        }
    }
}

void paintKey(HDC dc, const Key &key, RECT rect, bool shift, bool marked)
{
    InflateRect(&rect, -1, 0);
    rect.bottom -= 1;
    if (marked) {
        theme::drawFace(dc, rect, theme::frame, theme::accent, theme::accent);
    } else {
        theme::drawFace(dc, rect, theme::line, theme::page, theme::faceUpper);
    }
    const char16_t character = shift ? key.shifted : key.plain;
    const std::u16string_view label =
        character != 0 ? std::u16string_view(&character, 1) : std::u16string_view(key.label);
    theme::drawText(dc, label, rect, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX,
                    theme::textColour(true, marked));
}

void paint(HWND window, const SoftKeyboard &keyboard)
{
    const theme::Painting painting(window);
    const RECT rect = controls::clientRect(window);
    theme::fill(painting.dc(), rect, theme::faceLower);
    theme::fill(painting.dc(), {0, 0, rect.right, 1}, theme::line);
    forEachKey([&](const Key &key, const RECT &place) {
        const bool marked = &key == keyboard.pressed || (key.code == VK_SHIFT && keyboard.shift);
        paintKey(painting.dc(), key, place, keyboard.shift, marked);
    });
}

// Typing -------------------------------------------------------------------------------------

void type(SoftKeyboard &keyboard, const Key &key)
{
    const HWND focus = GetFocus();
    if (key.code == VK_SHIFT) {
        keyboard.shift = !keyboard.shift;
    } else if (key.code != 0) {
        PostMessageW(focus, WM_KEYDOWN, key.code, 0);
        PostMessageW(focus, WM_KEYUP, key.code, 0);
    } else {
        PostMessageW(focus, WM_CHAR, keyboard.shift ? key.shifted : key.plain, 0);
        keyboard.shift = false;
    }
}

const Key *keyAt(POINT point)
{
    const Key *found = nullptr;
    forEachKey([&](const Key &key, const RECT &rect) {
        if (PtInRect(&rect, point) != FALSE) {
            found = &key;
        }
    });
    return found;
}

/// A key is typed when the stylus is lifted. Typing may close the panel, and the window under it
/// must not get the rest of the tap.
void stylus(HWND window, SoftKeyboard &keyboard, UINT message, LPARAM lParam)
{
    const Key *key = keyAt(controls::pointOf(lParam));
    if (message == WM_LBUTTONDOWN) {
        SetCapture(window);
        keyboard.pressed = key;
    } else if (std::exchange(keyboard.pressed, nullptr) == key && key) {
        type(keyboard, *key);
    }
    InvalidateRect(window, nullptr, FALSE);
}

LRESULT handle(HWND window, SoftKeyboard &keyboard, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_PAINT:
        paint(window, keyboard);
        return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
        stylus(window, keyboard, message, lParam);
        return 0;
    default:
        return DefWindowProcW(window, message, wParam, lParam);
    }
}

} // namespace

void registerSoftKeyboard()
{
    panel = {};
    user::registerSystemClass(u"SoftKeyboard", controls::procedureWith<SoftKeyboard, handle>);
}

void raiseSoftKeyboard()
{
    if (!data()) {
        panel = CreateWindowExW(WS_EX_TOPMOST | WS_EX_NOACTIVATE, u"SoftKeyboard", u"", WS_POPUP, 0,
                                0, 0, panelHeight, {}, {}, {}, nullptr);
        placeSoftKeyboard();
    }
    ShowWindow(panel, SW_SHOWNA);
}

void lowerSoftKeyboard()
{
    if (SoftKeyboard *keyboard = data()) {
        *keyboard = {};
        ShowWindow(panel, SW_HIDE);
    }
}

void placeSoftKeyboard()
{
    if (data()) {
        MoveWindow(panel, 0, gdi::screen().height - menuBarHeight - panelHeight,
                   gdi::screen().width, panelHeight, TRUE);
        InvalidateRect(panel, nullptr, FALSE);
    }
}

} // namespace shell
