// Dialog templates for tests, and the running of them.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "aygshell.h"
#include "support/resource_image.h"
#include "user/recorder.h"
#include "winuser.h"

/// The words of a DIALOG resource.
class DialogWords
{
public:
    DialogWords(DWORD style, DWORD exStyle, int width, int height, std::u16string_view caption)
    {
        doubleWord(style);
        doubleWord(exStyle);
        numbers({0, 0, 0, width, height, 0, 0});
        text(caption);
        if ((style & DS_SETFONT) != 0) {
            numbers({8});
            text(u"System");
        }
    }
    DialogWords &add(std::u16string_view className, DWORD style, const RECT &rect, int id,
                     std::u16string_view title = u"")
    {
        words.resize((words.size() + 1) / 2 * 2);
        doubleWord(style | WS_VISIBLE);
        doubleWord(0);
        numbers({rect.left, rect.top, rect.right, rect.bottom, id});
        text(className);
        text(title);
        numbers({0});
        ++words[4];
        return *this;
    }

    std::vector<std::uint16_t> words;

private:
    void numbers(std::initializer_list<int> values)
    {
        for (const int value : values) {
            words.push_back(static_cast<std::uint16_t>(value));
        }
    }
    void doubleWord(DWORD value) { numbers({LOWORD(value), HIWORD(value)}); }
    void text(std::u16string_view value)
    {
        words.insert(words.end(), value.begin(), value.end());
        words.push_back(0);
    }
};

/// What a dialog procedure answers; WM_INITDIALOG, when it is not looked at, is answered TRUE.
using DialogHandler = std::function<INT_PTR(HWND, UINT, WPARAM, LPARAM)>;

inline INT_PTR CALLBACK handledDialog(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG) {
        SetWindowLongW(dialog, DWL_USER, lParam);
    }
    const auto *handler = reinterpret_cast<DialogHandler *>(GetWindowLongW(dialog, DWL_USER));
    const INT_PTR answer =
        handler && *handler ? (*handler)(dialog, message, wParam, lParam) : FALSE;
    return message == WM_INITDIALOG ? TRUE : answer;
}

inline INT_PTR runDialog(unsigned id, HWND owner, DialogHandler handler = {})
{
    const HRSRC resource = FindResourceW({}, MAKEINTRESOURCEW(id), MAKEINTRESOURCEW(5));
    return DialogBoxIndirectParamW({}, LoadResource({}, resource), owner, handledDialog,
                                   reinterpret_cast<LPARAM>(&handler));
}

/// Ends the dialog with the identifier of any button that is clicked.
inline INT_PTR endByCommand(HWND dialog, UINT message, WPARAM wParam, LPARAM)
{
    return message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED ? EndDialog(dialog, LOWORD(wParam))
                                                                 : FALSE;
}

/// Makes the dialog a full-screen page with an OK button.
inline INT_PTR beFullScreen(HWND page, UINT message, WPARAM wParam, LPARAM lParam)
{
    SHINITDLGINFO full{SHIDIM_FLAGS, page, SHIDIF_DONEBUTTON | SHIDIF_SIZEDLGFULLSCREEN};
    return message == WM_INITDIALOG ? SHInitDialog(&full)
                                    : endByCommand(page, message, wParam, lParam);
}
