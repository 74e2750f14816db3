// Pictures of the screen that the user asks for.
#pragma once

#include <string>

#include "host/host.h"

namespace desktop {

/// Saves the frame as a new PNG file named after the program and the time, in $XDG_PICTURES_DIR,
/// else in ~/Pictures, else in the current folder. Returns a line for the user: where, or why not.
std::string saveScreenshot(const host::Frame &frame, const std::string &title);

} // namespace desktop
