// The main window: the first that the program made.
#pragma once

#include "user/window.h"

namespace user {

/// The main window, or none when there is none or it is gone.
HWND programWindow();
/// Notes the main window when it is made, and has the host show the program's title and icon.
void noteCreation(const Window &window);
void forgetProgramWindow();

} // namespace user
