// The dialog manager: what is kept with a dialog, and running one.
#pragma once

#include <optional>

#include "controls/dialog_template.h"
#include "user/table.h"

namespace controls {

constexpr std::u16string_view dialogClass = u"Dialog";

struct DialogData final : user::WindowData
{
    std::optional<INT_PTR> result; ///< of the first EndDialog
    HWND lastFocus{};              ///< the control that has, or had, the focus
    int defaultId = IDOK;          ///< the button that Enter presses when no button has the focus
    bool doneButton = false;       ///< SHIDIF_DONEBUTTON
    bool fullScreen = false;       ///< SHIDIF_SIZEDLGFULLSCREEN
    bool ownCaption = false;       ///< it draws its caption itself: a message box
};

/// Null when the window is no dialog.
DialogData *dialogData(HWND window);

/// The parent of a control; none for a top-level window.
HWND dialogOf(HWND control);

/// Is called with each message before the dialog; true when the message needs no further handling.
using Preview = bool (*)(HWND dialog, const MSG &message);

/// Runs a dialog as DialogBoxIndirectParamW does. A dialog that is destroyed before its end, or
/// ended by WM_QUIT, results in 0; one that cannot be made in -1.
INT_PTR runModal(const DialogTemplate &description, HINSTANCE instance, HWND owner,
                 DLGPROC procedure, LPARAM parameter, Preview preview = nullptr);

/// Notes that this window has the focus: its dialog restores it there later, and its default push
/// button may change.
void focusMoved(HWND window);

void registerDialog();

} // namespace controls
