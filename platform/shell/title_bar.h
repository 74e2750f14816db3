// The title bar: the caption of the active window, and its OK button.
#pragma once

#include <optional>

#include "winuser.h"

namespace shell {

void createTitleBar();
/// Shows what has become of the active window.
void updateTitleBar();
/// Gives the bar the screen's width.
void placeTitleBar();
/// Where the OK button is on the screen; none when the active window has no use for one.
std::optional<RECT> okButtonRect();

} // namespace shell
