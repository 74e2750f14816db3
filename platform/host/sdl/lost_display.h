// A display that goes away under the program: its server ends, or closes the connection.
#pragma once

#include "host/sdl/sdl.h"

namespace desktop {

/// From now on the loss of the window's display is a request to close, on which the program ends as
/// ever, and keeps its game; X11's library alone would end the process.
void listenForLostDisplay(SDL_Window *window);
/// Nothing can be shown any more.
bool displayIsLost();

} // namespace desktop
