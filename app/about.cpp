// Runs the About page until it is closed by the OK button of its caption.
#include "app/about.h"

#include <aygshell.h>

#include "resources/module.h"
#include "resources/resource.h"

namespace {

INT_PTR CALLBACK aboutProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM)
{
    if (message == WM_INITDIALOG) {
        fillScreen(dialog, SHIDIF_DONEBUTTON | SHIDIF_SIPDOWN);
        return TRUE;
    }
    if (message == WM_COMMAND && LOWORD(wParam) == IDOK) {
        EndDialog(dialog, IDOK);
        return TRUE;
    }
    return FALSE;
}

} // namespace

void showAboutDialog(HWND window) { runDialog(IDD_ABOUT, window, aboutProcedure); }
