// What the desktop's keys are on the handheld.
#pragma once

#include <cstdint>

#include "host/sdl/sdl.h"

namespace desktop {

/// The virtual-key code that a key stands for; 0 for a key that the handheld does not have.
std::uint16_t virtualKey(const SDL_Keysym &key);
/// Whether a key is one that shows the stylus pointer while it is held: the right Ctrl or the menu
/// key, of which most keyboards have one, and with which nothing is typed.
bool isPointerKey(const SDL_Keysym &key);

} // namespace desktop
