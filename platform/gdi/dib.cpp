// Reads a device-independent bitmap.
#include "gdi/dib.h"

#include <array>

namespace gdi {

namespace {

using Bytes = std::span<const std::byte>;

constexpr std::size_t headerSize = 40;
constexpr std::size_t paletteEntrySize = 4;
constexpr std::uint32_t mostColours = 256;

unsigned byteAt(Bytes bytes, std::size_t at) { return std::to_integer<unsigned>(bytes[at]); }

std::uint32_t wordAt(Bytes bytes, std::size_t at)
{
    return byteAt(bytes, at) | byteAt(bytes, at + 1) << 8U;
}

std::uint32_t dwordAt(Bytes bytes, std::size_t at)
{
    return wordAt(bytes, at) | wordAt(bytes, at + 2) << 16U;
}

/// The colour stored there as blue, green, red.
Pixel pixelAt(Bytes bytes, std::size_t at)
{
    return toPixel(RGB(byteAt(bytes, at + 2), byteAt(bytes, at + 1), byteAt(bytes, at)));
}

struct Header
{
    int width;
    int height;
    unsigned bits;         ///< per pixel
    std::uint32_t colours; ///< in the palette

    std::size_t rowSize() const { return (static_cast<std::size_t>(width) * bits + 31) / 32 * 4; }
};

std::optional<Header> readHeader(Bytes dib)
{
    if (dib.size() < headerSize || dwordAt(dib, 0) != headerSize) {
        return std::nullopt;
    }
    Header header{static_cast<int>(dwordAt(dib, 4)), static_cast<int>(dwordAt(dib, 8)),
                  wordAt(dib, 14), dwordAt(dib, 32)};
    const bool onePlane = wordAt(dib, 12) == 1;
    const bool uncompressed = dwordAt(dib, 16) == 0;
    if (!onePlane || !uncompressed || (header.bits != 8 && header.bits != 24) ||
        header.colours > mostColours)
    {
        return std::nullopt;
    }
    if (header.bits == 8 && header.colours == 0) {
        header.colours = mostColours;
    }
    return header;
}

using Palette = std::array<Pixel, mostColours>;

void readRow(const Header &header, Bytes row, const Palette &palette, Pixel *target)
{
    for (std::size_t x = 0; x < static_cast<std::size_t>(header.width); x++) {
        target[x] = header.bits == 8 ? palette[byteAt(row, x)] : pixelAt(row, x * 3);
    }
}

} // namespace

std::unique_ptr<Bitmap> readDib(Bytes dib)
{
    const std::optional<Header> header = readHeader(dib);
    if (!header) {
        return nullptr;
    }
    const Bytes rest = dib.subspan(headerSize);
    const std::size_t paletteSize = header->colours * paletteEntrySize;
    // The bitmap's own limits on the sides come before any arithmetic with them.
    std::unique_ptr<Bitmap> bitmap = Bitmap::make(header->width, header->height);
    if (!bitmap || rest.size() < paletteSize ||
        (rest.size() - paletteSize) / header->rowSize() < static_cast<std::size_t>(header->height))
    {
        return nullptr;
    }
    Palette palette{}; // a pixel beyond the stored colours is black
    for (std::size_t i = 0; i < header->colours; i++) {
        palette[i] = pixelAt(rest, i * paletteEntrySize);
    }
    const Bytes rows = rest.subspan(paletteSize);
    for (int y = 0; y < header->height; y++) {
        const auto fromBottom = static_cast<std::size_t>(header->height - 1 - y);
        readRow(*header, rows.subspan(fromBottom * header->rowSize(), header->rowSize()), palette,
                bitmap->raster().at(0, y));
    }
    bitmap->storedBits = static_cast<WORD>(header->bits);
    return bitmap;
}

} // namespace gdi
