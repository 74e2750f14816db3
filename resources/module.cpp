// Finds resources by their numbers.
#include "resources/module.h"

#include <aygshell.h>

HINSTANCE moduleInstance{};

std::u16string loadText(UINT id)
{
    WCHAR text[256];
    const int length = LoadStringW(moduleInstance, id, text, 256);
    return {text, static_cast<std::size_t>(length)};
}

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
