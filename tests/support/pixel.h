// Single pixels of device contexts, for tests that draw and look.
#pragma once

#include "gdi/canvas.h"

/// The colour as the display shows it; CLR_INVALID outside the device context.
inline COLORREF getPixel(HDC dc, int x, int y)
{
    const auto *context = gdi::find<gdi::DeviceContext>(dc.value);
    const gdi::Extent extent = context ? gdi::extentOf(*context) : gdi::Extent{};
    const POINT place{x + extent.origin.x, y + extent.origin.y};
    return PtInRect(&extent.bounds, place) == FALSE
               ? CLR_INVALID
               : gdi::toColour(*extent.raster.at(place.x, place.y));
}

inline void setPixel(HDC dc, int x, int y, COLORREF colour)
{
    const RECT pixel{x, y, x + 1, y + 1};
    const HBRUSH brush = CreateSolidBrush(colour);
    FillRect(dc, &pixel, brush);
    DeleteObject(brush);
}
