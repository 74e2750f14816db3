// Where a device context draws: turns its logical coordinates into pixels of a raster and its
// clipping into rectangles there.
#pragma once

#include "gdi/objects.h"

namespace gdi {

/// The pixels of a device context, without regard to clipping.
struct Extent
{
    Raster raster;
    POINT origin; ///< where the context's (0, 0) lies in the raster
    RECT bounds;  ///< the context's part of the raster, in raster pixels
};

inline Extent extentOf(const DeviceContext &dc)
{
    if (!dc.area) {
        const Raster raster = dc.selected<Bitmap>().raster();
        return {raster, {0, 0}, raster.bounds()};
    }
    Screen &display = screen();
    const Raster raster{display.pixels.data(), display.width, display.height};
    const POINT origin = dc.area->origin();
    const SIZE size = dc.area->size();
    const RECT area{origin.x, origin.y, origin.x + size.cx, origin.y + size.cy};
    return {raster, origin, intersection(area, raster.bounds())};
}

/// Calls `draw(raster, origin, part)` for every rectangle `part` of the screen in which the device
/// context may draw, as far as it meets `bounds` (logical coordinates).
template <class Draw>
void paintOnScreen(const DeviceContext &dc, const RECT &bounds, const Draw &draw)
{
    const Extent extent = extentOf(dc);
    const RECT limit = intersection(moved(bounds, extent.origin.x, extent.origin.y), extent.bounds);
    const auto drawPart = [&](const RECT &part) {
        if (!isEmpty(part)) {
            draw(extent.raster, extent.origin, part);
            screen().changed = enclosing(screen().changed, part);
        }
    };
    for (const RECT &visible : dc.area->visible().rects()) {
        const RECT part = intersection(limit, visible);
        if (!dc.within) {
            drawPart(part);
            continue;
        }
        for (const RECT &within : dc.within->rects()) {
            drawPart(intersection(part, within));
        }
    }
}

/// The same for any device context; `bounds` is in reach.
template <class Draw>
void paint(const DeviceContext &dc, const RECT &bounds, const Draw &draw)
{
    const RECT wanted = intersection(bounds, dc.settings.clip);
    if (dc.area) {
        paintOnScreen(dc, wanted, draw);
        return;
    }
    const Raster raster = dc.selected<Bitmap>().raster();
    const RECT part = intersection(wanted, raster.bounds());
    if (!isEmpty(part)) {
        draw(raster, POINT{0, 0}, part);
    }
}

} // namespace gdi
