// Copying rectangles between device contexts.
#include "gdi/canvas.h"

namespace gdi {

namespace {

/// Calls `draw(raster, part, source raster, source corner)` for every rectangle that can be
/// copied to the target: inside the source, from that corner on, and where the target may draw.
/// False when there is no such device context or a number is out of reach.
template <class Draw>
bool transfer(HDC target, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
              const Draw &draw)
{
    const auto *to = find<DeviceContext>(target.value);
    const auto *from = find<DeviceContext>(source.value);
    if (!to || !from || !inReach(x, y, width, height, sourceX, sourceY)) {
        return false;
    }
    const Extent picture = extentOf(*from);
    // From the source's raster to the target's coordinates.
    const LONG dx = x - sourceX - picture.origin.x;
    const LONG dy = y - sourceY - picture.origin.y;
    paint(*to, intersection({x, y, x + width, y + height}, moved(picture.bounds, dx, dy)),
          [&](const Raster &raster, POINT origin, const RECT &part) {
              draw(raster, part, picture.raster,
                   {part.left - origin.x - dx, part.top - origin.y - dy});
          });
    return true;
}

} // namespace

} // namespace gdi

BOOL BitBlt(HDC target, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
            DWORD operation)
{
    const bool done = operation == SRCCOPY && gdi::transfer(target, x, y, width, height, source,
                                                            sourceX, sourceY, gdi::copy);
    return done ? TRUE : FALSE;
}

BOOL TransparentImage(HDC target, int x, int y, int width, int height, HDC source, int sourceX,
                      int sourceY, int sourceWidth, int sourceHeight, COLORREF transparent)
{
    const auto draw = [key = gdi::toPixel(transparent)](const gdi::Raster &raster, const RECT &part,
                                                        const gdi::Raster &picture, POINT corner) {
        gdi::copyTransparent(raster, part, picture, corner, key);
    };
    const bool done = width == sourceWidth && height == sourceHeight &&
                      gdi::transfer(target, x, y, width, height, source, sourceX, sourceY, draw);
    return done ? TRUE : FALSE;
}
