// The display's pixel format: red 5, green 6, blue 5 bits.
#pragma once

#include <cstdint>

#include "windef.h"

namespace gdi {

using Pixel = std::uint16_t;

/// Drops the low bits of each channel.
constexpr Pixel toPixel(COLORREF colour)
{
    return static_cast<Pixel>((GetRValue(colour) >> 3) << 11 | (GetGValue(colour) >> 2) << 5 |
                              GetBValue(colour) >> 3);
}

/// Repeats the high bits of each channel below it, so that white comes out white.
constexpr COLORREF toColour(Pixel pixel)
{
    const unsigned red = pixel >> 11U;
    const unsigned green = pixel >> 5U & 0x3FU;
    const unsigned blue = pixel & 0x1FU;
    return RGB(red << 3U | red >> 2U, green << 2U | green >> 4U, blue << 3U | blue >> 2U);
}

} // namespace gdi
