// What the desktop's keys are on the handheld.
#pragma once

#include <cstdint>

#include "host/sdl/sdl.h"

namespace desktop {

/// The virtual-key code that a key stands for; 0 for a key that the handheld does not have.
std::uint16_t virtualKey(const SDL_Keysym &key);

} // namespace desktop
