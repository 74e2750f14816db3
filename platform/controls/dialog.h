// The dialog manager's inside: what is kept with a dialog, and how one is made and run.
#pragma once

#include <optional>

#include "controls/dialog_template.h"
#include "user/table.h"

namespace controls {

constexpr std::u16string_view dialogClass = u"Dialog";

struct DialogData final : user::WindowData
{
    std::optional<INT_PTR> result; ///< what EndDialog was given first
    HWND lastFocus{};              ///< the control that has, or had, the focus
    int defaultId = IDOK;          ///< what Enter stands for when no button has the focus
    bool doneButton = false;       ///< SHIDIF_DONEBUTTON
    bool fullScreen = false;       ///< SHIDIF_SIZEDLGFULLSCREEN
    bool ownCaption = false;       ///< it draws its caption itself: a message box
};

/// Null when the window is no dialog.
DialogData *dialogData(HWND window);

/// The parent of a control; none for a top-level window, whose owner may be a dialog, too.
HWND dialogOf(HWND control);

/// Looks at a message before the dialog does; true when that is all that is to happen to it.
using Preview = bool (*)(HWND dialog, const MSG &message);

/// Runs a dialog as DialogBoxIndirectParamW does. A dialog that is destroyed before its end, or
/// ended by WM_QUIT, results in 0; one that cannot be made in -1.
INT_PTR runModal(const DialogTemplate &description, HINSTANCE instance, HWND owner,
                 DLGPROC procedure, LPARAM parameter, Preview preview = nullptr);

/// The focus has come to this window: its dialog will give it back there, and its default push
/// button may have changed.
void focusMoved(HWND window);
/// Gives a full-screen dialog its place: the screen below the title bar.
void fillScreen(HWND dialog);

void registerDialog();

} // namespace controls
