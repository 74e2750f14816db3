// Keys in a dialog: they move the focus, press the default push button, or cancel, unless the
// control with the focus wants them.
#include "controls/combobox.h"
#include "controls/dialog.h"

namespace {

void moveFocus(HWND dialog, HWND from, bool back)
{
    const HWND target = GetNextDlgTabItem(dialog, from == dialog ? HWND{} : from, back);
    if (!target) {
        return;
    }
    SetFocus(target);
    if ((SendMessageW(target, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0) {
        SendMessageW(target, EM_SETSEL, 0, -1);
    }
}

void command(HWND dialog, int id)
{
    const HWND control = GetDlgItem(dialog, id);
    if (!control || IsWindowEnabled(control) != FALSE) {
        SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(static_cast<WORD>(id), BN_CLICKED),
                     static_cast<LPARAM>(control.value));
    }
}

void pressDefaultButton(HWND dialog)
{
    for (HWND item = GetWindow(dialog, GW_CHILD); item; item = GetWindow(item, GW_HWNDNEXT)) {
        if ((SendMessageW(item, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON) != 0) {
            command(dialog, GetDlgCtrlID(item));
            return;
        }
    }
    const controls::DialogData *data = controls::dialogData(dialog);
    command(dialog, data ? data->defaultId : IDOK);
}

/// Returns false when the key is for the control. WM_GETDLGCODE carries the message, so that the
/// control can decide by it.
bool handleKey(HWND dialog, const MSG &message)
{
    const LRESULT wants = SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam,
                                       reinterpret_cast<LPARAM>(&message));
    if ((wants & DLGC_WANTALLKEYS) != 0) {
        return false;
    }
    switch (message.wParam) {
    case VK_TAB:
        moveFocus(dialog, message.hwnd, GetKeyState(VK_SHIFT) < 0);
        return true;
    case VK_LEFT:
    case VK_UP:
    case VK_RIGHT:
    case VK_DOWN: // most handhelds have no Tab key, only the pad
        if ((wants & DLGC_WANTARROWS) != 0) {
            return false;
        }
        moveFocus(dialog, message.hwnd, message.wParam == VK_LEFT || message.wParam == VK_UP);
        return true;
    case VK_RETURN:
        pressDefaultButton(dialog);
        return true;
    case VK_ESCAPE:
        command(dialog, IDCANCEL);
        return true;
    default:
        return false;
    }
}

} // namespace

BOOL IsDialogMessageW(HWND dialog, MSG *message)
{
    if (message->message == WM_LBUTTONDOWN) {
        controls::closeListUnless(message->hwnd);
    }
    if (message->hwnd != dialog && controls::dialogOf(message->hwnd) != dialog) {
        return FALSE;
    }
    if (message->message != WM_KEYDOWN || !handleKey(dialog, *message)) {
        TranslateMessage(message);
        DispatchMessageW(message);
    }
    return TRUE;
}
