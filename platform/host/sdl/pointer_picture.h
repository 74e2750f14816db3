// How the pointer looks: a pen over the picture, whose tip is the pixel that it points at.
#pragma once

#include "host/sdl/picture.h"

namespace desktop {

/// The pointer as it is shown.
struct PointerLook
{
    Point tip; ///< pixel of the screen
    bool down = false;

    bool operator==(const PointerLook &) const = default;
};

/// The part of the screen that it lies on.
host::Area pointerArea(const PointerLook &look, Size screen);
/// Draws it on the canvas, over the frame's pixels.
void drawPointer(const PointerLook &look, const host::Frame &frame, const Placement &placement,
                 const Canvas &canvas);

} // namespace desktop
