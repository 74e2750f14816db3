// Message boxes: dialogs as large as their text needs.
#include <algorithm>
#include <array>
#include <span>

#include "controls/control.h"
#include "controls/dialog.h"
#include "controls/theme.h"
#include "gdi/screen.h"
#include "host/current.h"
#include "user/message.h"
#include "user/shell_interface.h"

namespace {

constexpr int captionHeight = 19;
constexpr int padding = 10;
constexpr int iconSize = 29;
constexpr int buttonWidth = 64;
constexpr int buttonHeight = 22;
constexpr int buttonGap = 10;
constexpr int leastWidth = 160;
constexpr int screenMargin = 8;
constexpr UINT textFlags = DT_WORDBREAK | DT_NOPREFIX;

constexpr UINT buttonsMask = 0x0F;
constexpr UINT iconMask = 0xF0;

struct Button
{
    int id;
    const char16_t *text;
};

std::span<const Button> buttonsOf(UINT type)
{
    static constexpr std::array ok = {Button{IDOK, u"OK"}};
    static constexpr std::array okCancel = {Button{IDOK, u"OK"}, Button{IDCANCEL, u"Cancel"}};
    static constexpr std::array yesNo = {Button{IDYES, u"Yes"}, Button{IDNO, u"No"}};
    switch (type & buttonsMask) {
    case MB_OKCANCEL:
        return okCancel;
    case MB_YESNO:
        return yesNo;
    default:
        return ok;
    }
}

// Layout -------------------------------------------------------------------------------------

controls::ControlTemplate control(const char16_t *className, std::u16string text, DWORD style,
                                  int id, const RECT &rect)
{
    return {className, std::move(text), style | WS_VISIBLE, 0, id, rect};
}

void addButtons(controls::DialogTemplate &box, std::span<const Button> buttons, LONG top)
{
    const int count = static_cast<int>(buttons.size());
    const LONG row = count * buttonWidth + (count - 1) * buttonGap;
    LONG x = (box.rect.right - box.rect.left - row) / 2;
    DWORD style = BS_DEFPUSHBUTTON;
    for (const Button &button : buttons) {
        box.controls.push_back(control(u"BUTTON", button.text, style | WS_TABSTOP, button.id,
                                       {x, top, x + buttonWidth, top + buttonHeight}));
        x += buttonWidth + buttonGap;
        style = BS_PUSHBUTTON;
    }
}

/// Lays out the caption, the icon beside the text, and a row of buttons, in the middle of the
/// screen.
controls::DialogTemplate layOut(const std::u16string &text, const std::u16string &caption,
                                UINT type)
{
    const gdi::Screen &screen = gdi::screen();
    const int textLeft = padding + ((type & iconMask) != 0 ? iconSize + padding : 0);
    const int widest = screen.width - 2 * screenMargin - textLeft - padding;
    const SIZE size = theme::measureText(text, widest, textFlags);
    const int captionWidth =
        theme::measureText(caption, widest, DT_SINGLELINE, theme::Weight::Bold).cx;
    const int needed = std::max(textLeft + size.cx + padding, captionWidth + 2 * padding);
    const int width = std::clamp(needed, leastWidth, screen.width - 2 * screenMargin);
    const int body = std::max<int>(size.cy, (type & iconMask) != 0 ? iconSize : 0);
    const LONG bodyTop = captionHeight + padding;
    const LONG buttonsTop = bodyTop + body + padding;
    const LONG height = buttonsTop + buttonHeight + padding;

    controls::DialogTemplate box;
    box.caption = caption;
    box.style = WS_POPUP | WS_CAPTION | DS_ABSALIGN;
    box.exStyle = (type & MB_TOPMOST) != 0 ? WS_EX_TOPMOST : 0;
    const LONG left = (screen.width - width) / 2;
    const RECT area = user::theShell->workArea();
    const LONG top = area.top + (area.bottom - area.top - height) / 2;
    box.rect = {left, top, left + width, top + height};
    const LONG textTop = bodyTop + (body - size.cy) / 2;
    box.controls.push_back(control(u"STATIC", text, SS_LEFT | SS_NOPREFIX, -1,
                                   {textLeft, textTop, width - padding, textTop + size.cy}));
    addButtons(box, buttonsOf(type), buttonsTop);
    return box;
}

// Looks --------------------------------------------------------------------------------------

void drawSign(HDC dc, const RECT &rect, const char16_t *sign, COLORREF colour)
{
    constexpr LOGFONTW description{16, 0, 0, 0, FW_BOLD, 0, 0, 0, 0, 0, 0, 0, 0, u"Arial"};
    const HFONT font = CreateFontIndirectW(&description);
    const HGDIOBJ previous = SelectObject(dc, font);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, colour);
    RECT place = rect;
    DrawTextW(dc, sign, 1, &place, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    SelectObject(dc, previous);
    DeleteObject(font);
}

void drawIcon(HDC dc, UINT type)
{
    const LONG top = captionHeight + padding;
    const RECT rect{padding, top, padding + iconSize, top + iconSize};
    const POINT centre{rect.left + iconSize / 2, rect.top + iconSize / 2};
    if ((type & iconMask) == MB_ICONQUESTION) {
        theme::drawDisc(dc, centre, iconSize / 2, theme::question);
        drawSign(dc, rect, u"?", theme::accentText);
    } else if ((type & iconMask) == MB_ICONINFORMATION) {
        theme::drawDisc(dc, centre, iconSize / 2, theme::information);
        drawSign(dc, rect, u"i", theme::accentText);
    }
}

void paint(HWND box, UINT type)
{
    const theme::Painting painting(box);
    const RECT rect = controls::clientRect(box);
    const LONG middle = captionHeight / 2;
    theme::fill(painting.dc(), {1, 1, rect.right - 1, middle}, theme::titleUpper);
    theme::fill(painting.dc(), {1, middle, rect.right - 1, captionHeight}, theme::titleLower);
    theme::drawText(
        painting.dc(), user::find(box)->text, {padding, 1, rect.right - padding, captionHeight},
        DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX, theme::titleText, theme::Weight::Bold);
    drawIcon(painting.dc(), type);
}

// Behaviour ----------------------------------------------------------------------------------

void answer(HWND box, int id)
{
    const auto type = static_cast<UINT>(GetWindowLongW(box, DWL_USER));
    if (id == IDCANCEL && (type & buttonsMask) == MB_OK) {
        id = IDOK;
    }
    if (GetDlgItem(box, id)) {
        EndDialog(box, id);
    }
}

INT_PTR CALLBACK boxProcedure(HWND box, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_INITDIALOG:
        SetWindowLongW(box, DWL_USER, lParam);
        controls::dialogData(box)->ownCaption = true;
        return TRUE;
    case WM_PAINT:
        paint(box, static_cast<UINT>(GetWindowLongW(box, DWL_USER)));
        return TRUE;
    case WM_COMMAND:
        answer(box, LOWORD(wParam));
        return TRUE;
    default:
        return FALSE;
    }
}

/// Y and N answer a Yes-No question.
bool previewKey(HWND box, const MSG &message)
{
    const int id = message.wParam == 'Y' ? IDYES : message.wParam == 'N' ? IDNO : 0;
    if (message.message != WM_KEYDOWN || id == 0 || !GetDlgItem(box, id) ||
        controls::dialogOf(message.hwnd) != box)
    {
        return false;
    }
    answer(box, id);
    return true;
}

} // namespace

int MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type)
{
    if (user::quitPosted()) { // it would close at once
        return 0;
    }
    const std::u16string textShown = text ? text : u"";
    const std::u16string captionShown = caption ? caption : u"";
    controls::DialogTemplate box = layOut(textShown, captionShown, type);
    if (!owner) { // nothing of the program is disabled, so the box must stay in sight
        box.exStyle |= WS_EX_TOPMOST;
    }
    host::current().messageBoxOpened(captionShown, textShown);
    return static_cast<int>(
        controls::runModal(box, {}, owner, boxProcedure, static_cast<LPARAM>(type), previewKey));
}
