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

/// Calls `draw(raster, origin, part)` for every rectangle `part` of the raster in which the
/// device context may draw, as far as it meets `bounds` (logical coordinates, in reach).
template <class Draw>
void paint(const DeviceContext &dc, const RECT &bounds, const Draw &draw)
{
    const Extent extent = extentOf(dc);
    const POINT origin = extent.origin;
    const RECT limit = intersection(
        moved(intersection(bounds, dc.settings.clip), origin.x, origin.y), extent.bounds);
    if (isEmpty(limit)) {
        return;
    }
    if (!dc.area) {
        draw(extent.raster, origin, limit);
        return;
    }
    const auto drawOnScreen = [&](const RECT &part) {
        if (!isEmpty(part)) {
            draw(extent.raster, origin, part);
            screen().changed = enclosing(screen().changed, part);
        }
    };
    for (const RECT &visible : dc.area->visible().rects()) {
        const RECT part = intersection(limit, visible);
        if (!dc.within) {
            drawOnScreen(part);
            continue;
        }
        for (const RECT &within : dc.within->rects()) {
            drawOnScreen(intersection(part, within));
        }
    }
}

} // namespace gdi
