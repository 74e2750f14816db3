// From events of the host to messages.
#pragma once

#include <optional>

#include "host/host.h"
#include "winuser.h"

namespace user {

/// Does what the event changes by itself and returns the message for the program, if there is one.
std::optional<MSG> handleEvent(const host::Event &event);

} // namespace user
