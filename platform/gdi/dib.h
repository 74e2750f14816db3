// Reads a device-independent bitmap, as resources hold them, into the display's format.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>

#include "base/byte_reader.h"
#include "gdi/objects.h"

namespace gdi {

/// The 40 bytes at the beginning of a bitmap.
struct DibHeader
{
    std::uint32_t width;
    std::uint32_t height;
    unsigned bits;         ///< per pixel
    std::uint32_t colours; ///< in the palette: 256 at most

    /// The bytes of a row with so many bits a pixel.
    std::size_t rowSize(unsigned bitsOfPixel) const
    {
        return (std::size_t{width} * bitsOfPixel + 31) / 32 * 4;
    }
};
/// None for one that is compressed, or has neither 8 nor 24 bits a pixel.
std::optional<DibHeader> readDibHeader(base::ByteReader &reader);

/// `dib` is a 40-byte header, a palette, and rows from the bottom up, each padded to 4 bytes:
/// uncompressed, 8 bits a pixel with a palette, or 24 bits. Null when it is anything else or
/// shorter than its header says.
std::unique_ptr<Bitmap> readDib(std::span<const std::byte> dib);

} // namespace gdi
