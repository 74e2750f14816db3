// The names of SDL's keys.
#pragma once

#include <string>

#include "host/sdl/sdl.h"

namespace desktop {

/// The key's name as host/key_table.h has it; empty for a key without one.
std::string keyName(const SDL_Keysym &key);

} // namespace desktop
