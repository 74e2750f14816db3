// The stylus on the windows.
#pragma once

#include <optional>

#include "host/host.h"
#include "winuser.h"

namespace user {

/// The stylus message for the window that holds the capture or is under the pen. A press first
/// activates that window. Nothing when there is no window, or a disabled one.
std::optional<MSG> handleStylus(const host::Event &event);
/// Where the stylus was last, in screen pixels.
POINT stylusPosition();
void forgetStylus();

} // namespace user
