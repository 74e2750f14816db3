// Filled and framed rectangles.
#include "gdi/canvas.h"

namespace gdi {

namespace {

void fillRect(const DeviceContext &dc, const RECT &rect, std::optional<Pixel> pixel)
{
    if (pixel) {
        paint(dc, rect,
              [=](const Raster &raster, POINT, const RECT &part) { fill(raster, part, *pixel); });
    }
}

/// A border one pixel wide, inside the rectangle.
void frameRect(const DeviceContext &dc, const RECT &r, std::optional<Pixel> pixel)
{
    if (!isEmpty(r)) {
        fillRect(dc, {r.left, r.top, r.right, r.top + 1}, pixel);
        fillRect(dc, {r.left, r.bottom - 1, r.right, r.bottom}, pixel);
        fillRect(dc, {r.left, r.top, r.left + 1, r.bottom}, pixel);
        fillRect(dc, {r.right - 1, r.top, r.right, r.bottom}, pixel);
    }
}

} // namespace

} // namespace gdi

int FillRect(HDC dc, const RECT *rect, HBRUSH brush)
{
    const auto *context = gdi::find<gdi::DeviceContext>(dc.value);
    const auto *filling = gdi::find<gdi::Brush>(brush.value);
    if (!context || !filling || !rect || !gdi::inReach(*rect)) {
        return FALSE;
    }
    gdi::fillRect(*context, *rect, filling->pixel);
    return TRUE;
}

BOOL Rectangle(HDC dc, int left, int top, int right, int bottom)
{
    const auto *context = gdi::find<gdi::DeviceContext>(dc.value);
    if (!context || !gdi::inReach(left, top, right, bottom)) {
        return FALSE;
    }
    const RECT rect{left, top, right, bottom};
    gdi::fillRect(*context, rect, context->selected<gdi::Brush>().pixel);
    gdi::frameRect(*context, rect, context->selected<gdi::Pen>().pixel);
    return TRUE;
}
