// The handheld's screen in a window of any size: its place, and its enlarged pixels.
#pragma once

#include <cstddef>

#include "host/host.h"

namespace desktop {

using host::Point;
using host::Size;

/// A picture in the middle of a window, enlarged by the largest whole factor that fits, 1 at
/// least. Left and top are negative when not even that fits.
struct Placement
{
    int scale = 1;
    int left = 0;
    int top = 0;
};
Placement place(Size picture, Size window);

/// The pixel of the window in the middle of one of its points, from its size in both.
Point toPixels(Point point, Size points, Size pixels);
/// The pixel of the picture under a pixel of the window; outside of the picture, the nearest one,
/// or without `outside` none.
std::optional<Point> toPicture(Point window, const Placement &placement, Size picture,
                               bool outside);

/// Pixels of 32 bits, and the place of each colour's 8 bits in them.
struct Canvas
{
    std::byte *pixels = nullptr;
    std::size_t pitch = 0; ///< bytes from row to row
    Size size;
    unsigned redShift = 0;
    unsigned greenShift = 0;
    unsigned blueShift = 0;
};
/// Draws a part of the frame on the canvas. Returns what of the canvas has changed.
host::Area drawEnlarged(const host::Frame &frame, host::Area part, const Placement &placement,
                        const Canvas &canvas);

} // namespace desktop
