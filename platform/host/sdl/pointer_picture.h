// How the pointer looks: a pen whose tip is the pixel it points at, over the picture in the window.
#pragma once

#include "host/sdl/picture.h"

namespace desktop {

/// The pointer as it is shown.
struct PointerLook
{
    Point tip; ///< pixel of the screen
    bool down = false;

    bool operator==(const PointerLook &other) const
    {
        return tip.x == other.tip.x && tip.y == other.tip.y && down == other.down;
    }
};

/// The part of the screen that it lies on.
host::Area pointerArea(const PointerLook &look, Size screen);
/// Draws it on the canvas, over the frame's pixels.
void drawPointer(const PointerLook &look, const host::Frame &frame, const Placement &placement,
                 const Canvas &canvas);

} // namespace desktop
