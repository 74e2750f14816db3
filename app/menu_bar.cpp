// Makes the menu bar and grays its items.
#include "app/menu_bar.h"

#include <aygshell.h>

#include "resources/module.h"
#include "resources/resource.h"

HWND menuBar{};

HWND createMenuBar(HWND window)
{
    SHMENUBARINFO info{};
    info.cbSize = sizeof info;
    info.hwndParent = window;
    info.nToolBarId = IDM_MENU;
    info.hInstRes = moduleInstance;
    return SHCreateMenuBar(&info) != FALSE ? info.hwndMB : HWND{};
}

void updateMenuItems(bool playing)
{
    const LRESULT result = SendMessageW(menuBar, SHCMBM_GETMENU, 0, 0);
    const HMENU menu{static_cast<std::uint32_t>(result)};
    const UINT whilePlaying = playing ? MF_ENABLED : MF_GRAYED;
    const UINT otherwise = playing ? MF_GRAYED : MF_ENABLED;
    EnableMenuItem(menu, IDM_GAME_OPTIONS, MF_BYCOMMAND | otherwise);
    EnableMenuItem(menu, IDM_NEW_GAME, MF_BYCOMMAND | otherwise);
    EnableMenuItem(menu, IDM_ABANDON_GAME, MF_BYCOMMAND | whilePlaying);
}
