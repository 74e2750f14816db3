// COMBOBOX as a drop-down list: a field that shows the selected item, and a list that opens over
// the other controls. The list is a top-level window that never takes the activation; the keys go
// to the field, which has the focus.
#include "controls/combobox.h"

#include <algorithm>

#include "controls/control.h"
#include "controls/theme.h"
#include "gdi/screen.h"

namespace controls {

namespace {

constexpr int fieldHeight = 19;
constexpr int itemHeight = 17;
constexpr int arrowWidth = 17; ///< of the field's arrow
constexpr int padding = 3;     ///< from a frame to the text

struct ComboData final : user::WindowData
{
    std::vector<std::u16string> items;
    int selected = -1;
    HWND list{};           ///< while it is open
    int marked = -1;       ///< the item of the list that Enter would select
    bool tracking = false; ///< the stylus is down on the field or the list

    int count() const { return static_cast<int>(items.size()); }
};

/// The combo box whose list is open; there is never more than one.
HWND openCombo{};

// The list -----------------------------------------------------------------------------------

void mark(ComboData &data, int index)
{
    data.marked = index;
    InvalidateRect(data.list, nullptr, FALSE);
}

/// The item at a point of the list, or -1.
int itemAt(const ComboData &data, POINT point)
{
    RECT list = clientRect(data.list);
    InflateRect(&list, 0, -1);
    return PtInRect(&list, point) != FALSE ? (point.y - 1) / itemHeight : -1;
}

void paintList(HWND list, const ComboData &data)
{
    const theme::Painting painting(list);
    const RECT rect = clientRect(list);
    theme::fill(painting.dc(), rect, theme::page);
    for (int i = 0; i < data.count(); ++i) {
        RECT item{1, 1 + i * itemHeight, rect.right - 1, 1 + (i + 1) * itemHeight};
        const bool marked = i == data.marked;
        if (marked) {
            theme::fill(painting.dc(), item, theme::accent);
        }
        item.left += padding;
        theme::drawText(painting.dc(), data.items[static_cast<std::size_t>(i)], item,
                        DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX, theme::textColour(true, marked));
    }
    theme::drawFrame(painting.dc(), rect, theme::frame);
}

void openList(HWND combo, ComboData &data)
{
    const RECT field = screenRectOf(combo);
    const int height = std::max(1, data.count()) * itemHeight + 2;
    const bool below = field.bottom + height <= gdi::screen().height;
    const LONG top = below ? field.bottom - 1 : field.top + 1 - height;
    openCombo = combo;
    data.list = CreateWindowExW(WS_EX_TOPMOST | WS_EX_NOACTIVATE, u"ComboLBox", u"", WS_POPUP,
                                field.left, top, field.right - field.left, height,
                                user::find(combo)->topLevel().handle, {}, {}, nullptr);
    mark(data, data.selected);
    ShowWindow(data.list, SW_SHOWNA);
    InvalidateRect(combo, nullptr, FALSE);
}

void closeList(HWND combo, ComboData &data)
{
    const HWND list = data.list;
    data.list = {};
    data.tracking = false;
    openCombo = {};
    DestroyWindow(list);
    InvalidateRect(combo, nullptr, FALSE);
}

void show(HWND combo, ComboData &data, bool open)
{
    if (open && !data.list) {
        openList(combo, data);
    } else if (!open && data.list) {
        closeList(combo, data);
    }
}

// The field ----------------------------------------------------------------------------------

void select(HWND combo, ComboData &data, int index)
{
    data.selected = index >= 0 && index < data.count() ? index : -1;
    const bool any = data.selected >= 0;
    SetWindowTextW(combo, any ? data.items[static_cast<std::size_t>(index)].c_str() : u"");
    InvalidateRect(combo, nullptr, FALSE);
}

/// Selects what the user chose and notifies the dialog.
void choose(HWND combo, ComboData &data, int index)
{
    show(combo, data, false);
    if (index >= 0 && index != data.selected) {
        select(combo, data, index);
        notify(combo, CBN_SELCHANGE);
    }
}

void paintField(HWND combo, const ComboData &data)
{
    const theme::Painting painting(combo);
    const HDC dc = painting.dc();
    const RECT rect = clientRect(combo);
    const bool focused = GetFocus() == combo;
    const RECT arrow{rect.right - arrowWidth, rect.top, rect.right, rect.bottom};
    theme::fill(dc, rect, theme::page);
    const COLORREF outline = focused ? theme::accent : theme::line;
    theme::drawFrame(dc, rect, outline);
    theme::drawFace(dc, arrow, outline, static_cast<bool>(data.list));
    theme::drawArrow(dc, {(arrow.left + arrow.right) / 2, rect.bottom / 2},
                     data.list ? theme::accentText : theme::frame);
    const RECT inner{rect.left + 2, rect.top + 2, arrow.left - 1, rect.bottom - 2};
    const bool marked = focused && !data.list;
    if (marked) {
        theme::fill(dc, inner, theme::accent);
    }
    theme::drawText(dc, user::find(combo)->text,
                    {inner.left + 2, rect.top, inner.right, rect.bottom},
                    DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX,
                    theme::textColour(IsWindowEnabled(combo) != FALSE, marked));
}

/// The item that a key moves to, if it is a key that moves.
std::optional<int> itemFor(WPARAM code, int from, int count)
{
    const int last = count - 1;
    if (last < 0) {
        return std::nullopt;
    }
    switch (code) {
    case VK_LEFT:
    case VK_UP:
        return std::clamp(from - 1, 0, last);
    case VK_RIGHT:
    case VK_DOWN:
        return std::clamp(from + 1, 0, last);
    case VK_HOME:
        return 0;
    case VK_END:
        return last;
    default:
        return std::nullopt;
    }
}

/// In an open list the keys move the mark, Enter selects the marked item and Esc closes the list.
void key(HWND combo, ComboData &data, WPARAM code)
{
    const int from = data.list ? data.marked : data.selected;
    if (code == VK_F4) {
        show(combo, data, !data.list);
    } else if (code == VK_RETURN) { // gets here only while the list is open
        choose(combo, data, data.marked);
    } else if (code == VK_ESCAPE) {
        show(combo, data, false);
    } else if (const std::optional<int> item = itemFor(code, from, data.count()); !item) {
        return;
    } else if (data.list) {
        mark(data, *item);
    } else {
        choose(combo, data, *item);
    }
}

/// The stylus over the list, when it went down there or on the field: it moves the mark, and
/// chooses when it is lifted.
void stylusOnList(HWND combo, ComboData &data, UINT message, POINT point)
{
    const int item = data.tracking ? itemAt(data, point) : -1;
    const bool lifted = message == WM_LBUTTONUP;
    data.tracking = data.tracking && !lifted;
    if (item >= 0 && lifted) {
        choose(combo, data, item);
    } else if (item >= 0) {
        mark(data, item);
    }
}

/// The stylus on the field, or dragged from it over the list.
LRESULT stylusOnField(HWND combo, ComboData &data, UINT message, LPARAM lParam)
{
    if (message == WM_LBUTTONDOWN) {
        SetFocus(combo);
        show(combo, data, !data.list);
        SetCapture(combo);
        data.tracking = static_cast<bool>(data.list);
        return 0;
    }
    POINT point = pointOf(lParam);
    ClientToScreen(combo, &point);
    ScreenToClient(data.list, &point);
    stylusOnList(combo, data, message, point);
    return 0;
}

/// The template gives the height of field and list together; the list is as high as its items.
LRESULT create(HWND combo)
{
    user::Window &window = *user::find(combo);
    window.text.clear();
    SetWindowPos(combo, {}, 0, 0, window.size().cx, fieldHeight,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    return 0;
}

LRESULT handleOther(HWND combo, ComboData &data, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case CB_ADDSTRING:
        data.items.emplace_back(reinterpret_cast<LPCWSTR>(lParam));
        return data.count() - 1;
    case CB_GETCURSEL:
        return data.selected;
    case CB_SETCURSEL:
        select(combo, data, static_cast<int>(wParam));
        return data.selected;
    default:
        return DefWindowProcW(combo, message, wParam, lParam);
    }
}

LRESULT handle(HWND combo, ComboData &data, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_CREATE:
        return create(combo);
    case WM_PAINT:
        paintField(combo, data);
        return 0;
    case WM_LBUTTONDOWN:
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
        return stylusOnField(combo, data, message, lParam);
    case WM_KEYDOWN:
        key(combo, data, wParam);
        return 0;
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS | DLGC_WANTCHARS | (data.list ? DLGC_WANTALLKEYS : 0);
    case WM_KILLFOCUS:
    case WM_DESTROY:
        show(combo, data, false);
        [[fallthrough]];
    case WM_SETFOCUS:
    case WM_ENABLE:
        InvalidateRect(combo, nullptr, FALSE);
        return 0;
    default:
        return handleOther(combo, data, message, wParam, lParam);
    }
}

LRESULT CALLBACK listProcedure(HWND list, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto *data = dataOf<ComboData>(openCombo);
    if (!data || data->list != list) {
        return DefWindowProcW(list, message, wParam, lParam);
    }
    switch (message) {
    case WM_PAINT:
        paintList(list, *data);
        return 0;
    case WM_LBUTTONDOWN:
        SetCapture(list);
        data->tracking = true;
        [[fallthrough]];
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
        stylusOnList(openCombo, *data, message, pointOf(lParam));
        return 0;
    default:
        return DefWindowProcW(list, message, wParam, lParam);
    }
}

} // namespace

void registerComboBox()
{
    openCombo = {};
    user::registerSystemClass(u"COMBOBOX", procedureWith<ComboData, handle>);
    user::registerSystemClass(u"ComboLBox", listProcedure);
}

void closeListUnless(HWND target)
{
    auto *data = dataOf<ComboData>(openCombo);
    if (data && target != openCombo && target != data->list) {
        closeList(openCombo, *data);
    }
}

std::optional<RECT> listItemRect(HWND combo, int index)
{
    const auto *data = dataOf<ComboData>(combo);
    if (!data || !data->list || index < 0 || index >= data->count()) {
        return std::nullopt;
    }
    RECT rect = screenRectOf(data->list);
    rect.top += 1 + index * itemHeight;
    rect.bottom = rect.top + itemHeight;
    return rect;
}

} // namespace controls
