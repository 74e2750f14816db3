// The screen's pixel format, 5-6-5 bits of red, green and blue, to and from 8 bits each.
#pragma once

#include <cstdint>

namespace host {

using Pixel = std::uint16_t;

/// A colour with 8 bits a channel.
struct Rgb
{
    std::uint8_t red;
    std::uint8_t green;
    std::uint8_t blue;
};

/// Drops the low bits of each channel.
constexpr Pixel pack(Rgb colour)
{
    return static_cast<Pixel>((colour.red >> 3) << 11 | (colour.green >> 2) << 5 |
                              colour.blue >> 3);
}

/// Repeats the high bits of each channel below it, so that white stays white.
constexpr Rgb unpack(Pixel pixel)
{
    const unsigned red = pixel >> 11U;
    const unsigned green = pixel >> 5U & 0x3FU;
    const unsigned blue = pixel & 0x1FU;
    return {static_cast<std::uint8_t>(red << 3U | red >> 2U),
            static_cast<std::uint8_t>(green << 2U | green >> 4U),
            static_cast<std::uint8_t>(blue << 3U | blue >> 2U)};
}

} // namespace host
