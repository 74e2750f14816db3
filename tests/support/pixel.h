// Single pixels of device contexts, for tests that draw and look.
#pragma once

#include "controls/theme.h"
#include "gdi/canvas.h"

/// The colour as the display shows it; CLR_INVALID outside the device context.
inline COLORREF getPixel(HDC dc, int x, int y)
{
    const auto *context = gdi::find<gdi::DeviceContext>(dc.value);
    const gdi::Extent extent = context ? gdi::extentOf(*context) : gdi::Extent{};
    const POINT place{x + extent.origin.x, y + extent.origin.y};
    if (PtInRect(&extent.bounds, place) == FALSE) {
        return CLR_INVALID;
    }
    const host::Rgb rgb = host::unpack(*extent.raster.at(place.x, place.y));
    return RGB(rgb.red, rgb.green, rgb.blue);
}

inline void setPixel(HDC dc, int x, int y, COLORREF colour)
{
    theme::fill(dc, {x, y, x + 1, y + 1}, colour);
}
