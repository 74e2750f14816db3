// The Buttons page and the page "Please press a button" that it opens over itself.
#include "input/buttons_dialog.h"

#include <algorithm>
#include <array>
#include <string>

#include <aygshell.h>

#include "input/input_state.h"
#include "resources/module.h"
#include "resources/resource.h"

namespace {

constexpr std::array<std::uint32_t, 2> ignoredKeys{91, 131};

/// State that both pages share; only one Buttons dialog is open at a time.
struct ButtonCaptureState
{
    std::uint32_t capturedKey; ///< the key accepted for the action
    bool keyAccepted;          ///< a key was accepted and will be assigned
    bool capturing;            ///< the page "Please press a button" waits for a key
    std::int32_t actionIndex;  ///< the action whose key is being changed
    bool conflict;             ///< the key just pressed belongs to another action
    std::uint32_t conflictKey; ///< that key
    InputState *input;         ///< the keys that are edited
};

ButtonCaptureState capture{};

// Key names ---------------------------------------------------------------------------------------

struct KeyName
{
    std::uint32_t code;
    LPCWSTR text;
};

constexpr KeyName namedKeys[] = {
    {0, u"(not assigned)"},   {VK_RETURN, u"<Select>"}, {VK_LEFT, u"<Left>"},
    {VK_UP, u"<Up>"},         {VK_RIGHT, u"<Right>"},   {VK_DOWN, u"<Down>"},
    {VK_APP1, u"<Button A>"}, {VK_APP2, u"<Button B>"}, {VK_APP3, u"<Button C>"},
    {VK_APP4, u"<Button D>"},
};

std::u16string keyName(std::uint32_t keyCode)
{
    const std::uint32_t code = LOWORD(keyCode);
    const auto *named = std::find_if(std::begin(namedKeys), std::end(namedKeys),
                                     [code](const KeyName &key) { return key.code == code; });
    if (named != std::end(namedKeys)) {
        return named->text;
    }
    WCHAR text[32];
    const bool printable = code >= 32 && code <= 126;
    wsprintfW(text, printable ? u"<%c>" : u"<Key %d>", static_cast<int>(code));
    return text;
}

void refreshKeyNames(HWND page)
{
    for (std::size_t i = 0; i < actionCount; ++i) {
        SetDlgItemTextW(page, IDC_KEY_NAME_0 + static_cast<int>(i),
                        keyName(capture.input->slots[i].keyCode).c_str());
    }
}

// The page "Please press a button" ----------------------------------------------------------------

bool assignedElsewhere(std::uint32_t key)
{
    for (std::size_t i = 0; i < actionCount; ++i) {
        if (static_cast<std::int32_t>(i) != capture.actionIndex &&
            capture.input->slots[i].keyCode == key) {
            return true;
        }
    }
    return false;
}

/// Asks whether to take the key from the action that has it, and takes it. The question deactivates
/// the page, which therefore ends itself meanwhile; a Yes still assigns the key.
void resolveConflict(HWND page)
{
    const int answer =
        MessageBoxW(page, u"This button is already assigned Do you want to re-assign this control?",
                    u"Button already assigned", MB_YESNO);
    if (answer != IDYES) {
        capture.conflict = false;
        capture.conflictKey = 0;
        return;
    }
    for (ButtonSlot &slot : capture.input->slots) {
        if (slot.keyCode == capture.conflictKey) {
            slot.keyCode = 0;
        }
    }
    capture.keyAccepted = true;
    capture.capturedKey = capture.conflictKey;
}

void considerKey(HWND page, std::uint32_t key)
{
    if (std::find(ignoredKeys.begin(), ignoredKeys.end(), key) != ignoredKeys.end()) {
        return;
    }
    if (assignedElsewhere(key)) {
        capture.conflict = true;
        capture.conflictKey = key;
        resolveConflict(page);
    } else {
        capture.capturedKey = key;
        capture.keyAccepted = true;
    }
}

/// Considers a pressed key; returns whether it was assigned, which closes the page.
bool captureStep(HWND page, std::uint32_t key)
{
    if (!capture.capturing) {
        return false;
    }
    capture.conflict = false;
    considerKey(page, key);
    if (!capture.keyAccepted) {
        return false;
    }
    if (capture.capturedKey != 0) {
        capture.input->slots[static_cast<std::size_t>(capture.actionIndex)].keyCode =
            capture.capturedKey;
    }
    capture.keyAccepted = false;
    capture.capturing = false;
    EndDialog(page, LOWORD(key));
    return true;
}

/// Answers which keys the page wants: all. A key press that comes with the question is considered
/// right away, before the dialog manager can use it.
INT_PTR answerDialogCode(HWND page, const MSG *message)
{
    if (message && message->message == WM_KEYDOWN) {
        captureStep(page, static_cast<std::uint32_t>(message->wParam));
    }
    SetWindowLongW(page, DWL_MSGRESULT, message ? 0 : DLGC_WANTALLKEYS);
    return TRUE;
}

INT_PTR CALLBACK captureProcedure(HWND page, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_INITDIALOG:
        fillScreen(page);
        return TRUE;
    case WM_GETDLGCODE:
        return answerDialogCode(page, reinterpret_cast<const MSG *>(lParam));
    case WM_KEYDOWN:
        return captureStep(page, static_cast<std::uint32_t>(wParam)) ? TRUE : FALSE;
    case WM_ACTIVATE:
        if (wParam == WA_INACTIVE) {
            capture.keyAccepted = false;
            capture.capturing = false;
            EndDialog(page, 0);
            return TRUE;
        }
        return FALSE;
    default:
        return FALSE;
    }
}

// The Buttons page -------------------------------------------------------------------------------

void captureKey(HWND page, int actionIndex)
{
    capture.actionIndex = actionIndex;
    SetDlgItemTextW(page, IDC_KEY_NAME_0 + actionIndex, u"Press a Button");
    capture.capturing = true;
    runDialog(IDD_PRESS_A_BUTTON, page, captureProcedure);
    SetFocus(page);
}

INT_PTR handleCommand(HWND page, int id)
{
    if (id == IDOK) {
        EndDialog(page, IDOK);
        return TRUE;
    }
    if (id == IDC_RESET_BUTTONS) {
        capture.input->setDefaults();
        refreshKeyNames(page);
        return FALSE;
    }
    const int actionIndex = id - IDC_ACTION_0;
    if (actionIndex >= 0 && actionIndex < static_cast<int>(actionCount) && !capture.capturing) {
        captureKey(page, actionIndex);
        return TRUE;
    }
    return FALSE;
}

INT_PTR CALLBACK buttonsProcedure(HWND page, UINT message, WPARAM wParam, LPARAM)
{
    switch (message) {
    case WM_INITDIALOG:
        fillScreen(page, SHIDIF_DONEBUTTON);
        capture.capturing = false;
        return TRUE;
    case WM_ACTIVATE:
        refreshKeyNames(page);
        return TRUE;
    case WM_COMMAND:
        return handleCommand(page, LOWORD(wParam));
    default:
        return FALSE;
    }
}

} // namespace

void showButtonsDialog(InputState &input, HWND parent)
{
    capture.input = &input;
    runDialog(IDD_BUTTONS, parent, buttonsProcedure);
    SetActiveWindow(parent);
}
