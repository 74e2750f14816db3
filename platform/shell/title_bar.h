// The title bar: the caption of the active window, and its OK button.
#pragma once

#include <optional>

#include "winuser.h"

namespace shell {

constexpr int titleBarHeight = 26; ///< pixels

void createTitleBar();
/// Shows the active window's caption and OK button as they are now.
void updateTitleBar();
/// Gives the bar the screen's width.
void placeTitleBar();
/// The screen rectangle of the OK button; nothing when there is none.
std::optional<RECT> okButtonRect();

} // namespace shell
