// Finds dialog templates in the program's resources and runs them.
#include "app/modal_dialog.h"

#include <aygshell.h>

#include "app/window.h"

INT_PTR runDialog(UINT id, HWND owner, DLGPROC procedure, LPARAM parameter)
{
    const HRSRC found = FindResourceW(moduleInstance, MAKEINTRESOURCEW(id), RT_DIALOG);
    return DialogBoxIndirectParamW(moduleInstance, LoadResource(moduleInstance, found), owner,
                                   procedure, parameter);
}

void fillScreen(HWND dialog, DWORD flags)
{
    SHINITDLGINFO info{SHIDIM_FLAGS, dialog, SHIDIF_SIZEDLGFULLSCREEN | flags};
    SHInitDialog(&info);
}
