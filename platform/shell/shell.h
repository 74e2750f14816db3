// The shell: the title bar and the menu bar that frame the program's windows, and the input panel.
// It draws with windows of its own.
#pragma once

namespace shell {

/// Registers the controls' and the shell's window classes, makes the title bar, and joins the
/// window manager.
void switchOn();

} // namespace shell
