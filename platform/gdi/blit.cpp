// Copying rectangles between device contexts.
#include "gdi/canvas.h"

namespace gdi {

namespace {

/// Calls `draw(raster, part, source raster, source corner)` for every rectangle that can be
/// copied to `to`: inside the source, from its `from` on, and where the target may draw.
template <class Draw>
void transfer(const DeviceContext &target, const RECT &to, const DeviceContext &source,
              const POINT &from, const Draw &draw)
{
    const Extent picture = extentOf(source);
    // From the source's raster to the target's coordinates.
    const LONG dx = to.left - from.x - picture.origin.x;
    const LONG dy = to.top - from.y - picture.origin.y;
    paint(target, intersection(to, moved(picture.bounds, dx, dy)),
          [&](const Raster &raster, POINT origin, const RECT &part) {
              draw(raster, part, picture.raster,
                   {part.left - origin.x - dx, part.top - origin.y - dy});
          });
}

} // namespace

} // namespace gdi

BOOL BitBlt(HDC target, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
            DWORD operation)
{
    const auto *to = gdi::find<gdi::DeviceContext>(target.value);
    const auto *from = gdi::find<gdi::DeviceContext>(source.value);
    if (!to || !from || operation != SRCCOPY ||
        !gdi::inReach(x, y, width, height, sourceX, sourceY)) {
        return FALSE;
    }
    gdi::transfer(*to, {x, y, x + width, y + height}, *from, {sourceX, sourceY}, gdi::copy);
    return TRUE;
}

BOOL TransparentImage(HDC target, int x, int y, int width, int height, HDC source, int sourceX,
                      int sourceY, int sourceWidth, int sourceHeight, COLORREF transparent)
{
    const auto *to = gdi::find<gdi::DeviceContext>(target.value);
    const auto *from = gdi::find<gdi::DeviceContext>(source.value);
    if (!to || !from || width != sourceWidth || height != sourceHeight ||
        !gdi::inReach(x, y, width, height, sourceX, sourceY))
    {
        return FALSE;
    }
    gdi::transfer(*to, {x, y, x + width, y + height}, *from, {sourceX, sourceY},
                  [key = gdi::toPixel(transparent)](const gdi::Raster &raster, const RECT &part,
                                                    const gdi::Raster &picture, POINT corner) {
                      gdi::copyTransparent(raster, part, picture, corner, key);
                  });
    return TRUE;
}
