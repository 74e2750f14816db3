// What events of the host mean to the windows.
#pragma once

#include <optional>

#include "host/host.h"
#include "winuser.h"

namespace user {

/// Carries out what an event does by itself; the message to be given to the program for it, if
/// there is one.
std::optional<MSG> handleEvent(const host::Event &event);

} // namespace user
