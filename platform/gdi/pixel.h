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

} // namespace gdi
