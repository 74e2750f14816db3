// The "New High Score" dialog, with the input panel raised while it is open.
#include "frontend/name_entry.h"

#include <algorithm>

#include <aygshell.h>

#include "resources/module.h"
#include "resources/resource.h"

namespace {

/// Moves the dialog to the middle of its parent's client area.
void centre(HWND dialog)
{
    RECT rect{};
    RECT client{};
    if (GetWindowRect(dialog, &rect) == FALSE) {
        return;
    }
    GetClientRect(GetParent(dialog), &client);
    const LONG x = std::max(0, (client.right - (rect.right - rect.left)) / 2);
    const LONG y = std::max(0, (client.bottom - (rect.bottom - rect.top)) / 2);
    SetWindowPos(dialog, HWND_TOP, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
}

void initialise(HWND dialog, LPARAM candidate)
{
    SHSipPreference(dialog, SIP_UP);
    centre(dialog);
    SetWindowLongW(dialog, DWL_USER, candidate);
    SendDlgItemMessageW(dialog, IDC_NAME, CEM_UPCASEALLWORDS, FALSE, 0);
    SetDlgItemTextW(dialog, IDC_NAME, u"");
    SetFocus(dialog);
}

void close(HWND dialog, int result)
{
    EndDialog(dialog, result);
    if (result == IDOK) {
        auto *candidate = reinterpret_cast<HighScoreEntry *>(GetWindowLongW(dialog, DWL_USER));
        GetDlgItemTextW(dialog, IDC_NAME, candidate->name.data(),
                        static_cast<int>(candidate->name.size()));
    }
    SHSipPreference(dialog, SIP_DOWN);
}

INT_PTR CALLBACK nameProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG) {
        initialise(dialog, lParam);
        return TRUE;
    }
    if (message == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)) {
        close(dialog, LOWORD(wParam));
        return TRUE;
    }
    return FALSE;
}

} // namespace

bool enterHighScore(HighScoreTable &table, HWND parent, std::int32_t score, std::int32_t lines,
                    std::int32_t level)
{
    if (table.rankOf(score) < 0) {
        return true;
    }
    HighScoreEntry candidate{};
    candidate.set(u"", score, lines, level);
    SHInitExtraControls();
    const INT_PTR result =
        runDialog(IDD_NEW_HIGH_SCORE, parent, nameProcedure, reinterpret_cast<LPARAM>(&candidate));
    if (result == IDOK && candidate.name[0] != u'\0') {
        table.insert(candidate);
    }
    SHSipPreference(parent, SIP_DOWN);
    return true;
}
