// The shell's calls as programs see them.
#include "aygshell.h"

#include "base/byte_reader.h"
#include "controls/dialog.h"
#include "resources/image.h"
#include "shell/input_panel.h"
#include "shell/menu_bar.h"
#include "user/shell_interface.h"

namespace {

/// The buttons of a menu bar resource, their drop-downs found in `menu`; none when it is malformed.
std::vector<shell::MenuBarButton> readButtons(base::ByteReader &reader, HMENU menu)
{
    std::vector<shell::MenuBarButton> buttons;
    const int count = reader.word();
    for (int i = 0; i < count && reader.good(); ++i) {
        shell::MenuBarButton button;
        reader.skip(2); // image
        button.command = reader.word();
        reader.skip(4); // state and style: every button is an enabled one with a drop-down
        button.text = resources::string(reader.word());
        reader.skip(2);
        button.dropDown = GetSubMenu(menu, reader.word());
        if (!reader.good() || !button.dropDown) {
            return {};
        }
        buttons.push_back(std::move(button));
    }
    return buttons;
}

} // namespace

BOOL SHCreateMenuBar(SHMENUBARINFO *info)
{
    info->hwndMB = {};
    const auto bytes = resources::find(RT_RCDATA, MAKEINTRESOURCEW(info->nToolBarId));
    base::ByteReader reader(bytes);
    const HMENU menu = LoadMenuW(info->hInstRes, MAKEINTRESOURCEW(reader.word()));
    std::vector<shell::MenuBarButton> buttons = readButtons(reader, menu);
    if (!buttons.empty() && IsWindow(info->hwndParent) != FALSE) {
        info->hwndMB = shell::createMenuBar(info->hwndParent, menu, std::move(buttons));
    }
    if (!info->hwndMB) {
        DestroyMenu(menu);
        return FALSE;
    }
    return TRUE;
}

BOOL SHHandleWMActivate(HWND window, WPARAM wParam, LPARAM, SHACTIVATEINFO *info, DWORD)
{
    const auto belongs = [window](HWND child) {
        return child && (child == window || GetParent(child) == window);
    };
    if (LOWORD(wParam) == WA_INACTIVE) {
        const HWND focus = GetFocus();
        info->hwndLastFocus = belongs(focus) ? focus : HWND{};
    } else {
        SetFocus(belongs(info->hwndLastFocus) ? info->hwndLastFocus : window);
    }
    return TRUE;
}

BOOL SHHandleWMSettingChange(HWND, WPARAM, LPARAM, SHACTIVATEINFO *)
{
    return TRUE; // the input panel covers windows, so none has to make room
}

BOOL SHInitDialog(SHINITDLGINFO *info)
{
    controls::DialogData *data = controls::dialogData(info->hDlg);
    if (!data) {
        return FALSE;
    }
    if ((info->dwMask & SHIDIM_FLAGS) == 0) {
        return TRUE;
    }
    data->doneButton = (info->dwFlags & SHIDIF_DONEBUTTON) != 0;
    if ((info->dwFlags & SHIDIF_SIZEDLGFULLSCREEN) != 0) {
        data->fullScreen = true;
        const RECT area = user::theShell->workArea();
        MoveWindow(info->hDlg, area.left, area.top, area.right - area.left, area.bottom - area.top,
                   TRUE);
    }
    if ((info->dwFlags & SHIDIF_SIPDOWN) != 0) {
        shell::setInputPanel(false);
    }
    return TRUE;
}

BOOL SHSipPreference(HWND, SIPSTATE state)
{
    shell::setInputPanel(state == SIP_UP);
    return TRUE;
}

BOOL SHInitExtraControls()
{
    shell::registerExtraControls();
    return TRUE;
}
