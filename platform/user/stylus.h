// Stylus messages.
#pragma once

#include <optional>

#include "host/host.h"
#include "winuser.h"

namespace user {

/// The stylus message for the window that holds the capture, else the one under the stylus. A press
/// first activates that window. Returns nothing when there is none or it is disabled.
std::optional<MSG> handleStylus(const host::Event &event);
/// Where the stylus was last, in screen pixels.
POINT stylusPosition();
void forgetStylus();

} // namespace user
