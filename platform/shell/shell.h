// The shell: title bar and menu bar, which frame the program's windows, and input panel.
#pragma once

namespace shell {

/// Registers all window classes, makes the title bar, and joins the window manager.
void switchOn();

} // namespace shell
