// The shell is told here what happens to windows, and passes it on to its parts.
#include "shell/shell.h"

#include "controls/combobox.h"
#include "controls/controls.h"
#include "controls/dialog.h"
#include "host/current.h"
#include "shell/drop_down.h"
#include "shell/input_panel.h"
#include "shell/menu_bar.h"
#include "shell/soft_keyboard.h"
#include "shell/title_bar.h"

namespace shell {

void switchOn()
{
    controls::registerButton();
    controls::registerStatic();
    controls::registerEdit();
    comboboxes::registerClasses();
    dialogs::registerClass();
    registerMenuBar();
    registerDropDown();
    switchOnInputPanel();
    createTitleBar();
}

void activeWindowChanged()
{
    if (GetActiveWindow() != GetParent(shownMenuBar())) {
        cancelMenu();
    }
    updateTitleBar();
    updateMenuBars();
}

void displayTurned()
{
    cancelMenu();
    comboboxes::closeListUnless({});
    placeTitleBar();
    placeMenuBars();
    placeSoftKeyboard();
}

void focusMoved(HWND window)
{
    host::current().wantText(controls::isEdit(window));
    dialogs::focusMoved(window);
    inputPanelFocusMoved(window);
}

} // namespace shell
