// Raises and lowers the soft keyboard.
#include "shell/input_panel.h"

#include "controls/edit.h"
#include "shell/soft_keyboard.h"
#include "user/order.h"
#include "user/table.h"

namespace shell {

namespace {

bool raisedByPreference = false;

LRESULT CALLBACK preferenceProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return message == WM_GETDLGCODE ? DLGC_STATIC : DefWindowProcW(window, message, wParam, lParam);
}

bool dialogHasPreference(HWND window)
{
    const user::Window *found = user::find(window);
    return found && found->parent &&
           user::firstOf(found->parent->children, [](const user::Window *sibling) {
               return sibling->windowClass->procedure == preferenceProcedure;
           });
}

} // namespace

void switchOnInputPanel()
{
    raisedByPreference = false;
    registerSoftKeyboard();
}

void setInputPanel(bool up)
{
    raisedByPreference = false;
    if (up) {
        raiseSoftKeyboard();
    } else {
        lowerSoftKeyboard();
    }
}

void inputPanelFocusMoved(HWND window)
{
    if (controls::isEdit(window) && dialogHasPreference(window)) {
        raiseSoftKeyboard();
        raisedByPreference = true;
    } else if (raisedByPreference) {
        setInputPanel(false);
    }
}

void registerExtraControls()
{
    controls::registerCapEdit();
    user::registerSystemClass(u"SIPPREF", preferenceProcedure);
}

} // namespace shell
