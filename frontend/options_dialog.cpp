// Fills the four combo boxes from the session, and the session from them when Done is tapped.
#include "frontend/options_dialog.h"

#include <initializer_list>

#include <aygshell.h>

#include "engine/game_session.h"
#include "resources/module.h"
#include "resources/resource.h"

namespace {

/// The session whose options are edited while the page is open.
GameSession *edited = nullptr;

/// The queue length of each item of the Queue box.
constexpr std::int32_t queueLengths[] = {0, 1, 6};

void fillBox(HWND dialog, int id, std::initializer_list<LPCWSTR> items, int selected)
{
    for (LPCWSTR item : items) {
        SendDlgItemMessageW(dialog, id, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item));
    }
    SendDlgItemMessageW(dialog, id, CB_SETCURSEL, static_cast<WPARAM>(selected), 0);
}

LRESULT selectionOf(HWND dialog, int id)
{
    return SendDlgItemMessageW(dialog, id, CB_GETCURSEL, 0, 0);
}

void showOptions(HWND dialog)
{
    const std::int32_t length = edited->queueLength;
    const int queueItem = length == 0 || length == 1 ? length : 2;
    fillBox(dialog, IDC_QUEUE, {u"Off", u"1 tetramino", u"6 tetraminoes"}, queueItem);
    fillBox(dialog, IDC_HOLD, {u"Off", u"On"}, edited->holdEnabled != 0);
    fillBox(dialog, IDC_GHOST, {u"Off", u"On"}, edited->ghostEnabled != 0);
    fillBox(dialog, IDC_SOUND, {u"Off", u"On"}, edited->soundEnabled != 0);
}

void takeOptions(HWND dialog)
{
    const LRESULT queue = selectionOf(dialog, IDC_QUEUE);
    edited->queueLength = queueLengths[queue == 0 || queue == 1 ? queue : 2];
    edited->holdEnabled = selectionOf(dialog, IDC_HOLD) != 0;
    edited->ghostEnabled = selectionOf(dialog, IDC_GHOST) != 0;
    edited->soundEnabled = selectionOf(dialog, IDC_SOUND) != 0;
}

INT_PTR CALLBACK optionsProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM)
{
    if (message == WM_INITDIALOG) {
        fillScreen(dialog, SHIDIF_DONEBUTTON);
        showOptions(dialog);
        return TRUE;
    }
    if (message == WM_COMMAND && LOWORD(wParam) == IDOK) {
        EndDialog(dialog, IDOK);
        takeOptions(dialog);
        return TRUE;
    }
    return FALSE;
}

} // namespace

void showOptionsDialog(GameSession &session, HWND parent)
{
    edited = &session;
    runDialog(IDD_GAME_OPTIONS, parent, optionsProcedure);
    SetActiveWindow(parent);
}
