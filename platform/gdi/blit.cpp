// Copying rectangles between device contexts.
#include "gdi/canvas.h"

namespace gdi {

namespace {

struct Size
{
    int width;
    int height;
};

/// Calls `draw(raster, part, source raster, source corner)` for every rectangle that can be
/// copied: inside the source and where the target may draw.
template <class Draw>
void transfer(const DeviceContext &target, POINT to, Size size, const DeviceContext &source,
              POINT from, const Draw &draw)
{
    const Extent picture = extentOf(source);
    const RECT asked{to.x, to.y, to.x + size.width, to.y + size.height};
    // The source in the target's coordinates.
    const RECT there =
        moved(picture.bounds, to.x - from.x - picture.origin.x, to.y - from.y - picture.origin.y);
    paint(target, intersection(asked, there),
          [&](const Raster &raster, POINT origin, const RECT &part) {
              const POINT corner{part.left - origin.x - to.x + from.x + picture.origin.x,
                                 part.top - origin.y - to.y + from.y + picture.origin.y};
              draw(raster, part, picture.raster, corner);
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
    gdi::transfer(*to, {x, y}, {width, height}, *from, {sourceX, sourceY}, gdi::copy);
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
    gdi::transfer(*to, {x, y}, {width, height}, *from, {sourceX, sourceY},
                  [key = gdi::toPixel(transparent)](const gdi::Raster &raster, const RECT &part,
                                                    const gdi::Raster &picture, POINT corner) {
                      gdi::copyTransparent(raster, part, picture, corner, key);
                  });
    return TRUE;
}
