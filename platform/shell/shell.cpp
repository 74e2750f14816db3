// Joins the shell's parts to the window manager.
#include "shell/shell.h"

#include "controls/combobox.h"
#include "controls/control.h"
#include "controls/dialog.h"
#include "controls/edit.h"
#include "host/current.h"
#include "shell/drop_down.h"
#include "shell/input_panel.h"
#include "shell/menu_bar.h"
#include "shell/soft_keyboard.h"
#include "shell/title_bar.h"
#include "user/shell_interface.h"

namespace shell {

namespace {

class Shell final : public user::ShellInterface
{
public:
    RECT workArea() const override
    {
        RECT area = user::screenRect();
        area.top = titleBarHeight;
        return area;
    }

    /// A control that wants all keys, an open list say, gets Esc as a key of its own.
    bool escapeCancels(HWND target) const override
    {
        const bool inDialog =
            controls::dialogData(target) || controls::dialogData(controls::dialogOf(target));
        return menuIsOpen() ||
               (inDialog && (SendMessageW(target, WM_GETDLGCODE, 0, 0) & DLGC_WANTALLKEYS) == 0);
    }

    void activeWindowChanged() override
    {
        if (GetActiveWindow() != GetParent(shownMenuBar())) {
            cancelMenu();
        }
        updateTitleBar();
        updateMenuBars();
    }

    void displayTurned() override
    {
        cancelMenu();
        controls::closeListUnless({});
        placeTitleBar();
        placeMenuBars();
        placeSoftKeyboard();
    }

    void focusMoved(HWND window) override
    {
        host::current().wantText(controls::isEdit(window));
        controls::focusMoved(window);
        inputPanelFocusMoved(window);
    }
};

Shell instance;

} // namespace

void switchOn()
{
    user::theShell = &instance;
    controls::registerButton();
    controls::registerStatic();
    controls::registerEdit();
    controls::registerComboBox();
    controls::registerDialog();
    registerMenuBar(trackMenu);
    registerDropDown();
    switchOnInputPanel();
    createTitleBar();
}

} // namespace shell
