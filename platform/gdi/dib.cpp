// Reads a device-independent bitmap.
#include "gdi/dib.h"

#include <array>

namespace gdi {

namespace {

using Bytes = std::span<const std::byte>;

constexpr std::size_t headerSize = 40;
constexpr std::uint32_t mostColours = 256;

/// The colour stored there as blue, green, red.
Pixel pixelAt(Bytes bytes, std::size_t at)
{
    const auto channel = [&](std::size_t i) {
        return std::to_integer<std::uint8_t>(bytes[at + i]);
    };
    return host::pack({channel(2), channel(1), channel(0)});
}

using Palette = std::array<Pixel, mostColours>;

void readRow(const DibHeader &header, Bytes row, const Palette &palette, Pixel *target)
{
    for (std::size_t x = 0; x < header.width; ++x) {
        target[x] =
            header.bits == 8 ? palette[std::to_integer<std::size_t>(row[x])] : pixelAt(row, x * 3);
    }
}

} // namespace

std::optional<DibHeader> readDibHeader(base::ByteReader &reader)
{
    const std::uint32_t size = reader.doubleWord();
    DibHeader header{};
    header.width = reader.doubleWord();
    header.height = reader.doubleWord();
    const unsigned planes = reader.word();
    header.bits = reader.word();
    const std::uint32_t compression = reader.doubleWord();
    reader.skip(12); // size of the pixels, resolution
    header.colours = reader.doubleWord();
    reader.skip(4);
    if (!reader.good() || size != headerSize || planes != 1 || compression != 0 ||
        (header.bits != 8 && header.bits != 24) || header.colours > mostColours)
    {
        return std::nullopt;
    }
    if (header.bits == 8 && header.colours == 0) {
        header.colours = mostColours;
    }
    return header;
}

std::unique_ptr<Bitmap> readDib(Bytes dib)
{
    constexpr std::size_t paletteEntrySize = 4;
    base::ByteReader reader(dib);
    const auto header = readDibHeader(reader);
    if (!header) {
        return nullptr;
    }
    const Bytes rest = dib.subspan(headerSize);
    const std::size_t paletteSize = header->colours * paletteEntrySize;
    // Making the bitmap checks the sides, before any arithmetic with them.
    std::unique_ptr<Bitmap> bitmap =
        Bitmap::make(static_cast<int>(header->width), static_cast<int>(header->height));
    if (!bitmap || rest.size() < paletteSize ||
        (rest.size() - paletteSize) / header->rowSize(header->bits) < header->height)
    {
        return nullptr;
    }
    Palette palette{}; // a pixel beyond the stored colours is black
    for (std::size_t i = 0; i < header->colours; ++i) {
        palette[i] = pixelAt(rest, i * paletteEntrySize);
    }
    const Bytes rows = rest.subspan(paletteSize);
    const std::size_t rowSize = header->rowSize(header->bits);
    for (int y = 0; y < bitmap->height; ++y) {
        const auto fromBottom = static_cast<std::size_t>(bitmap->height - 1 - y);
        readRow(*header, rows.subspan(fromBottom * rowSize, rowSize), palette,
                bitmap->raster().at(0, y));
    }
    bitmap->storedBits = static_cast<WORD>(header->bits);
    return bitmap;
}

} // namespace gdi
