// Which keys are down.
#pragma once

#include <optional>

#include "host/host.h"
#include "winuser.h"

namespace user {

/// Takes note of a key event; the key message for the window that gets the keys, if it is one for
/// the program: not so an application button that the program does not hold, nor the release of a
/// key that was not pressed here.
std::optional<MSG> handleKey(const host::Event &event);
/// Every key counts as up and not pressed.
void releaseAllKeys();
/// The Ctrl and Shift keys as they were in the last event of the host.
void noteModifiers(const host::Event &event);
bool controlDown();
bool shiftDown();
/// From now on the application buttons reach the program, or no longer.
void holdButtons(bool held);
void forgetKeys();

} // namespace user
