// A display that goes away under the program: its server ends, or closes the connection.
#pragma once

#include <functional>

#include "host/sdl/sdl.h"

namespace desktop {

/// From now on the loss of the window's display is a request to close, on which the program ends as
/// ever, and keeps its game; X11's library alone would end the process.
void listenForLostDisplay(SDL_Window *window);
/// Nothing can be shown any more.
bool displayIsLost();
/// Calls SDL where it deals with what comes from the display, and returns early when the display is
/// lost meanwhile: SDL would work with answers that it did not get. Does nothing without a display.
void withDisplay(const std::function<void()> &call);
/// Everything is kept: when the display is lost now, the process ends at once, with status 0.
void needDisplayNoMore();

} // namespace desktop
