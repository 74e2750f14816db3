// The look of the pointer: a pen whose tip is the pixel it points at.
#pragma once

#include <vector>

#include "host/host.h"
#include "host/pixel.h"
#include "host/stylus_pointer.h"

namespace host {

/// The part of the screen that it covers.
Area pointerArea(const PointerLook &look, Size screen);
/// The pixels of that part, the pen over the frame, row by row.
std::vector<Pixel> pointerPixels(const PointerLook &look, const Frame &frame);

} // namespace host
