// Colours as programs write them, and the display's pixels.
#pragma once

#include "host/pixel.h"
#include "windef.h"

namespace gdi {

using host::Pixel;

constexpr Pixel toPixel(COLORREF colour)
{
    return host::pack({GetRValue(colour), GetGValue(colour), GetBValue(colour)});
}

constexpr COLORREF toColour(Pixel pixel)
{
    const host::Rgb rgb = host::unpack(pixel);
    return RGB(rgb.red, rgb.green, rgb.blue);
}

} // namespace gdi
