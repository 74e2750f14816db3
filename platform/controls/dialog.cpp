// Dialogs: creation, the modal loop, and the default handling of messages.
#include "controls/dialog.h"

#include <functional>

#include "controls/combobox.h"
#include "controls/control.h"
#include "controls/theme.h"
#include "resources/image.h"
#include "user/focus.h"
#include "user/shell_interface.h"

namespace controls {

namespace {

/// The bytes from a template, which is in the program's resources, to the end of the resources.
std::span<const std::byte> templateBytes(LPCDLGTEMPLATEW address)
{
    const std::span<const std::byte> image = resources::image();
    const auto *first = static_cast<const std::byte *>(address);
    constexpr std::less<> before; // defined for any two addresses, as < is not
    if (before(first, image.data()) || !before(first, image.data() + image.size())) {
        return {};
    }
    return image.subspan(static_cast<std::size_t>(first - image.data()));
}

/// The point that the template's position counts from.
POINT originFor(const DialogTemplate &description, HWND owner)
{
    if ((description.style & DS_ABSALIGN) != 0) {
        return {0, 0};
    }
    if (owner) {
        const RECT rect = screenRectOf(owner);
        return {rect.left, rect.top};
    }
    const RECT area = user::theShell->workArea();
    return {area.left, area.top};
}

void createControls(HWND dialog, const DialogTemplate &description, HINSTANCE instance)
{
    for (const ControlTemplate &control : description.controls) {
        const RECT &rect = control.rect;
        const HWND made =
            CreateWindowExW(control.exStyle, control.className.c_str(), control.text.c_str(),
                            control.style | WS_CHILD, rect.left, rect.top, rect.right - rect.left,
                            rect.bottom - rect.top, dialog,
                            HMENU{static_cast<std::uint32_t>(control.id)}, instance, nullptr);
        DialogData *data = dialogData(dialog);
        if (data && made && (SendMessageW(made, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON) != 0) {
            data->defaultId = control.id;
        }
    }
}

/// The dialog with its controls, still hidden. None when its window cannot be made.
HWND createHidden(const DialogTemplate &description, HINSTANCE instance, HWND owner,
                  DLGPROC procedure)
{
    const POINT origin = originFor(description, owner);
    const RECT &rect = description.rect;
    const HWND dialog =
        CreateWindowExW(description.exStyle, dialogClass.data(), description.caption.c_str(),
                        (description.style | WS_POPUP) & ~(WS_VISIBLE | WS_CHILD),
                        origin.x + rect.left, origin.y + rect.top, rect.right - rect.left,
                        rect.bottom - rect.top, owner, {}, instance, nullptr);
    user::Window *window = user::find(dialog);
    if (!window) {
        return {};
    }
    window->data = std::make_unique<DialogData>();
    window->isDialog = true;
    SetWindowLongW(dialog, DWL_DLGPROC, reinterpret_cast<LONG_PTR>(procedure));
    createControls(dialog, description, instance);
    return dialog;
}

/// Lets the procedure set the dialog up, then shows it and gives it the focus.
void open(HWND dialog, LPARAM parameter)
{
    const HWND first = GetNextDlgTabItem(dialog, {}, FALSE);
    const LRESULT defaultFocus = SendMessageW(dialog, WM_INITDIALOG, first.value, parameter);
    const DialogData *data = dialogData(dialog);
    if (!data || data->result) {
        return;
    }
    ShowWindow(dialog, SW_SHOW);
    SetActiveWindow(dialog);
    if (defaultFocus != 0) {
        SetFocus(first ? first : dialog);
    }
}

/// Handles messages until the dialog is ended or gone.
INT_PTR loop(HWND dialog, Preview preview)
{
    while (const DialogData *data = dialogData(dialog)) {
        if (data->result) {
            return *data->result;
        }
        MSG message;
        if (GetMessageW(&message, {}, 0, 0) == 0) {
            PostQuitMessage(static_cast<int>(message.wParam)); // for the outer loop
            return 0;
        }
        if ((preview && preview(dialog, message)) || IsDialogMessageW(dialog, &message) != FALSE) {
            continue;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return 0;
}

/// Gives the focus to the control that had it last, else to the first that can have it.
void restoreFocus(HWND dialog)
{
    DialogData *data = dialogData(dialog);
    if (!data) {
        return;
    }
    HWND target = data->lastFocus;
    if (dialogOf(target) != dialog || IsWindowVisible(target) == FALSE ||
        IsWindowEnabled(target) == FALSE)
    {
        target = GetNextDlgTabItem(dialog, {}, FALSE);
    }
    if (target) {
        SetFocus(target);
    } else if (GetFocus() != dialog) {
        SetFocus(dialog);
    }
}

void erase(HWND dialog, HDC dc)
{
    const RECT rect = clientRect(dialog);
    theme::fill(dc, rect, theme::page);
    const DialogData *data = dialogData(dialog);
    if (data && !data->fullScreen) {
        theme::drawFrame(dc, rect, theme::frame);
    }
}

LRESULT handleByDefault(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_ERASEBKGND:
        erase(dialog, HDC{static_cast<std::uint32_t>(wParam)});
        return TRUE;
    case WM_ACTIVATE:
        if (LOWORD(wParam) != WA_INACTIVE) {
            restoreFocus(dialog);
        }
        return 0;
    case WM_SETFOCUS:
        restoreFocus(dialog);
        return 0;
    case WM_CLOSE:
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        return 0;
    default:
        return DefWindowProcW(dialog, message, wParam, lParam);
    }
}

/// Activates the window that was active before the dialog. A dialog that was never shown has only
/// taken the focus.
void giveBack(HWND dialog, HWND back)
{
    const HWND active = GetActiveWindow();
    if (IsWindow(back) == FALSE) {
        return;
    }
    if (active == dialog || (!active && user::inForeground())) {
        SetActiveWindow(back);
    } else if (active == back && !GetFocus()) {
        SetFocus(back);
    }
}

} // namespace

DialogData *dialogData(HWND window) { return dataOf<DialogData>(window); }

HWND dialogOf(HWND control)
{
    const user::Window *window = user::find(control);
    return window && window->parent ? window->parent->handle : HWND{};
}

INT_PTR runModal(const DialogTemplate &description, HINSTANCE instance, HWND owner,
                 DLGPROC procedure, LPARAM parameter, Preview preview)
{
    if (user::Window *window = user::find(owner)) {
        owner = window->topLevel().handle;
    }
    const HWND back = owner ? owner : GetActiveWindow();
    const bool disabled = owner && EnableWindow(owner, FALSE) == FALSE;
    const HWND dialog = createHidden(description, instance, owner, procedure);
    INT_PTR result = -1;
    if (dialog) {
        open(dialog, parameter);
        result = loop(dialog, preview);
    }
    if (disabled) {
        EnableWindow(owner, TRUE);
    }
    if (dialog) {
        giveBack(dialog, back);
    }
    DestroyWindow(dialog);
    return result;
}

void focusMoved(HWND window)
{
    const HWND dialog = dialogOf(window);
    DialogData *data = dialogData(dialog);
    if (!data) {
        return;
    }
    data->lastFocus = window;
    const bool onButton = (SendMessageW(window, WM_GETDLGCODE, 0, 0) & DLGC_BUTTON) != 0;
    const HWND wanted = onButton ? window : GetDlgItem(dialog, data->defaultId);
    for (HWND item = GetWindow(dialog, GW_CHILD); item; item = GetWindow(item, GW_HWNDNEXT)) {
        const LRESULT code = SendMessageW(item, WM_GETDLGCODE, 0, 0);
        const LRESULT other = item == wanted ? DLGC_UNDEFPUSHBUTTON : DLGC_DEFPUSHBUTTON;
        if ((code & other) != 0) {
            SendMessageW(item, BM_SETSTYLE, item == wanted ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON,
                         TRUE);
        }
    }
}

void registerDialog() { user::registerSystemClass(dialogClass, DefDlgProcW); }

} // namespace controls

INT_PTR DialogBoxIndirectParamW(HINSTANCE module, LPCDLGTEMPLATEW dialogTemplate, HWND owner,
                                DLGPROC procedure, LPARAM parameter)
{
    const auto description = controls::parseTemplate(controls::templateBytes(dialogTemplate));
    return description ? controls::runModal(*description, module, owner, procedure, parameter) : -1;
}

BOOL EndDialog(HWND dialog, INT_PTR result)
{
    controls::DialogData *data = controls::dialogData(dialog);
    if (!data) {
        return FALSE;
    }
    if (!data->result) {
        data->result = result;
        PostMessageW(dialog, WM_NULL, 0, 0); // its loop may be waiting for a message
    }
    return TRUE;
}

LRESULT DefDlgProcW(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto procedure = reinterpret_cast<DLGPROC>(GetWindowLongW(dialog, DWL_DLGPROC));
    if (procedure) {
        SetWindowLongW(dialog, DWL_MSGRESULT, 0);
        const INT_PTR handled = procedure(dialog, message, wParam, lParam);
        if (message == WM_INITDIALOG) {
            return handled;
        }
        if (handled != FALSE) {
            return GetWindowLongW(dialog, DWL_MSGRESULT);
        }
    }
    return controls::handleByDefault(dialog, message, wParam, lParam);
}
