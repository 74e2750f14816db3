// EDIT and CAPEDIT: one line of text that scrolls sideways, with a caret and a selection. The text
// itself is the window's. A CAPEDIT makes capitals of small letters as they are typed.
#include "controls/edit.h"

#include <algorithm>

#include "aygshell.h"
#include "controls/control.h"
#include "controls/theme.h"
#include "controls/upper_case.h"

namespace controls {

namespace {

constexpr int margin = 4;                  ///< from the edge to the text, pixels
constexpr std::size_t longestText = 30000; ///< code units
constexpr UINT caretTimer = 1;
constexpr UINT caretPeriod = 500; ///< shown, and hidden, for so many milliseconds

struct EditData : user::WindowData
{
    std::size_t caret = 0;
    std::size_t anchor = 0; ///< the selection is between this and the caret
    int scroll = 0;         ///< pixels of the text left of the visible part
    bool capitalises = false;
    bool everyWord = true;
    bool caretShown = false;
    bool dragging = false;

    std::size_t first() const { return std::min(caret, anchor); }
    std::size_t last() const { return std::max(caret, anchor); }
};

struct CapEditData final : EditData
{
    CapEditData() { capitalises = true; }
};

/// An edit box as its procedure uses it.
struct Edit
{
    HWND handle;
    std::u16string &text;
    EditData &data;
};

int widthBetween(const Edit &edit, std::size_t from, std::size_t to)
{
    const HDC dc = GetDC(edit.handle);
    SIZE size{};
    GetTextExtentPoint32W(dc, edit.text.c_str() + from, static_cast<int>(to - from), &size);
    ReleaseDC(edit.handle, dc);
    return size.cx;
}

int widthUpTo(const Edit &edit, std::size_t position) { return widthBetween(edit, 0, position); }

/// The position between two characters that is nearest to a column of the client area.
std::size_t positionAt(const Edit &edit, LONG x)
{
    const LONG target = x - margin + edit.data.scroll;
    LONG left = 0;
    for (std::size_t position = 0; position < edit.text.size(); ++position) {
        const LONG width = widthBetween(edit, position, position + 1);
        if (2 * left + width > 2 * target) {
            return position;
        }
        left += width;
    }
    return edit.text.size();
}

/// Scrolls until the caret is visible, and shows it.
void update(Edit &edit)
{
    EditData &data = edit.data;
    const int room = clientRect(edit.handle).right - 2 * margin;
    const int x = widthUpTo(edit, data.caret);
    const int all = widthUpTo(edit, edit.text.size());
    data.scroll = std::clamp(data.scroll, std::max(0, x - room), x);
    data.scroll = std::clamp(data.scroll, 0, std::max(0, all - room));
    if (GetFocus() == edit.handle) {
        data.caretShown = true;
        SetTimer(edit.handle, caretTimer, caretPeriod, nullptr);
    }
    InvalidateRect(edit.handle, nullptr, FALSE);
}

void moveCaret(Edit &edit, std::size_t position, bool select)
{
    edit.data.caret = position;
    if (!select) {
        edit.data.anchor = position;
    }
    update(edit);
}

/// Puts `inserted` in the place of the selection.
void replaceSelection(Edit &edit, std::u16string_view inserted)
{
    EditData &data = edit.data;
    edit.text.replace(data.first(), data.last() - data.first(), inserted);
    moveCaret(edit, data.first() + inserted.size(), false);
    notify(edit.handle, EN_CHANGE);
}

bool beginsWord(const Edit &edit, std::size_t position)
{
    const bool first = edit.text.find_first_not_of(u' ') >= position;
    return first || (edit.data.everyWord && edit.text[position - 1] == u' ');
}

void erase(Edit &edit, bool forward)
{
    EditData &data = edit.data;
    if (data.caret == data.anchor) {
        if (forward ? data.caret == edit.text.size() : data.caret == 0) {
            return;
        }
        data.anchor = forward ? data.caret + 1 : data.caret - 1;
    }
    replaceSelection(edit, {});
}

void insert(Edit &edit, char16_t unit)
{
    const EditData &data = edit.data;
    if (unit == VK_BACK) {
        erase(edit, false);
        return;
    }
    const std::size_t kept = edit.text.size() - (data.last() - data.first());
    if (unit < u' ' || unit == 0x7F || kept >= longestText) {
        return;
    }
    if (data.capitalises && beginsWord(edit, data.first())) {
        unit = upperCase(unit);
    }
    replaceSelection(edit, {&unit, 1});
}

void key(Edit &edit, WPARAM code)
{
    const EditData &data = edit.data;
    const bool shift = GetKeyState(VK_SHIFT) < 0;
    const bool selected = data.caret != data.anchor && !shift;
    switch (code) {
    case VK_LEFT:
    case VK_UP:
        moveCaret(edit, selected ? data.first() : data.caret - (data.caret > 0 ? 1 : 0), shift);
        break;
    case VK_RIGHT:
    case VK_DOWN:
        moveCaret(edit, selected ? data.last() : std::min(data.caret + 1, edit.text.size()), shift);
        break;
    case VK_HOME:
        moveCaret(edit, 0, shift);
        break;
    case VK_END:
        moveCaret(edit, edit.text.size(), shift);
        break;
    case VK_DELETE:
        erase(edit, true);
        break;
    default:
        break;
    }
}

void stylus(Edit &edit, UINT message, LPARAM lParam)
{
    if (message == WM_LBUTTONDOWN) {
        SetFocus(edit.handle);
        SetCapture(edit.handle);
        edit.data.dragging = true;
        moveCaret(edit, positionAt(edit, pointOf(lParam).x), false);
    } else if (edit.data.dragging) {
        moveCaret(edit, positionAt(edit, pointOf(lParam).x), true);
        edit.data.dragging = message == WM_MOUSEMOVE;
    }
}

/// Draws the text between two positions, on the accent colour when it is selected.
void paintRun(const Edit &edit, HDC dc, std::size_t from, std::size_t to, COLORREF colour)
{
    const RECT client = clientRect(edit.handle);
    const LONG left = margin - edit.data.scroll + widthUpTo(edit, from);
    const LONG right = margin - edit.data.scroll + widthUpTo(edit, to);
    if (colour == theme::accentText) {
        theme::fill(dc, {left, client.top + 3, right, client.bottom - 3}, theme::accent);
    }
    theme::drawText(dc, std::u16string_view(edit.text).substr(from, to - from),
                    {left, client.top, right, client.bottom},
                    DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_NOCLIP, colour);
}

void paint(const Edit &edit)
{
    const theme::Painting painting(edit.handle);
    const HDC dc = painting.dc();
    const EditData &data = edit.data;
    const bool focused = GetFocus() == edit.handle;
    RECT rect = clientRect(edit.handle);
    theme::fill(dc, rect, theme::page);
    if ((GetWindowLongW(edit.handle, GWL_STYLE) & static_cast<LONG_PTR>(WS_BORDER)) != 0) {
        theme::drawFrame(dc, rect, focused ? theme::accent : theme::line);
    }
    SaveDC(dc);
    IntersectClipRect(dc, margin - 1, 1, rect.right - margin + 1, rect.bottom - 1);
    const std::size_t first = focused ? data.first() : edit.text.size();
    const std::size_t last = focused ? data.last() : edit.text.size();
    paintRun(edit, dc, 0, first, theme::text);
    paintRun(edit, dc, first, last, theme::accentText);
    paintRun(edit, dc, last, edit.text.size(), theme::text);
    if (focused && data.caretShown) {
        const LONG x = margin - data.scroll + widthUpTo(edit, data.caret);
        theme::fill(dc, {x, 3, x + 1, rect.bottom - 3}, theme::text);
    }
    RestoreDC(dc, -1);
}

LRESULT select(Edit &edit, WPARAM from, LPARAM to)
{
    const std::size_t size = edit.text.size();
    edit.data.anchor = std::min(static_cast<std::size_t>(from), size);
    moveCaret(edit, to < 0 ? size : std::min(static_cast<std::size_t>(to), size), true);
    return 0;
}

LRESULT setEditText(Edit &edit, WPARAM wParam, LPARAM lParam)
{
    const LRESULT result = setText(edit.handle, wParam, lParam);
    moveCaret(edit, 0, false);
    notify(edit.handle, EN_CHANGE);
    return result;
}

void focusChanged(Edit &edit, bool gained)
{
    edit.data.caretShown = gained;
    if (gained) {
        update(edit);
    } else {
        KillTimer(edit.handle, caretTimer);
    }
    InvalidateRect(edit.handle, nullptr, FALSE);
}

/// The messages of edit boxes alone.
LRESULT handleOwn(Edit &edit, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case EM_SETSEL:
        return select(edit, wParam, lParam);
    case CEM_UPCASEALLWORDS:
        edit.data.everyWord = wParam != 0;
        return 0;
    default:
        return DefWindowProcW(edit.handle, message, wParam, lParam);
    }
}

LRESULT handle(HWND window, EditData &data, UINT message, WPARAM wParam, LPARAM lParam)
{
    Edit edit{window, user::find(window)->text, data};
    switch (message) {
    case WM_PAINT:
        paint(edit);
        return 0;
    case WM_LBUTTONDOWN:
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
        stylus(edit, message, lParam);
        return 0;
    case WM_CHAR:
        insert(edit, static_cast<char16_t>(wParam));
        return 0;
    case WM_KEYDOWN:
        key(edit, wParam);
        return 0;
    case WM_CAPTURECHANGED:
        edit.data.dragging = false;
        return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        focusChanged(edit, message == WM_SETFOCUS);
        return 0;
    case WM_TIMER:
        edit.data.caretShown = !edit.data.caretShown;
        InvalidateRect(edit.handle, nullptr, FALSE);
        return 0;
    case WM_SETTEXT:
        return setEditText(edit, wParam, lParam);
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS | DLGC_WANTCHARS | DLGC_HASSETSEL;
    default:
        return handleOwn(edit, message, wParam, lParam);
    }
}

} // namespace

bool isEdit(HWND window) { return dataOf<EditData>(window) != nullptr; }

void registerEdit() { user::registerSystemClass(u"EDIT", procedureWith<EditData, handle>); }
void registerCapEdit()
{
    user::registerSystemClass(u"CAPEDIT", procedureWith<CapEditData, handle>);
}

} // namespace controls
