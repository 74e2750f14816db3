// Bitmaps as resources hold them.
#include <cstring>
#include <span>

#include <gtest/gtest.h>

#include "gdi/dib.h"

namespace {

using Bytes = std::vector<std::byte>;

/// An uncompressed bitmap: its header and the words that follow.
Bytes dib(std::uint32_t width, std::uint32_t height, std::uint32_t bits, std::uint32_t colours,
          std::initializer_list<std::uint32_t> rest)
{
    std::vector<std::uint32_t> words = {40, width, height, bits << 16U | 1U, 0,
                                        0,  0,     0,      colours,          0};
    words.insert(words.end(), rest);
    const auto bytes = std::as_bytes(std::span(words));
    return {bytes.begin(), bytes.end()};
}

/// 3 by 2, three colours; the upper row is 0 1 2, the lower 2 2 9.
const Bytes paletted =
    dib(3, 2, 8, 3, {0x00FF0000, 0x0000FF07, 0x00070307, 0x00090202, 0x00020100});

using Pixels = std::vector<gdi::Pixel>;

Pixels pixelsOf(const Bytes &bytes, int storedBits)
{
    const auto bitmap = gdi::readDib(bytes);
    EXPECT_EQ(bitmap ? bitmap->storedBits : 0, storedBits);
    return bitmap
               ? Pixels(bitmap->pixels.get(), bitmap->pixels.get() + bitmap->width * bitmap->height)
               : Pixels();
}

} // namespace

TEST(Dib, ReadsPalettesAndDropsLowBits)
{
    // An index beyond the palette is black.
    EXPECT_EQ(pixelsOf(paletted, 8), (Pixels{0xF800, 0x07E0, 0, 0, 0, 0}));
}

TEST(Dib, Reads24Bits)
{
    // Below: blue, and a byte of padding.
    EXPECT_EQ(pixelsOf(dib(1, 2, 24, 0, {0xFF0000FF, 0x00ADBEFF}), 24),
              (Pixels{gdi::toPixel(RGB(173, 190, 255)), 0x001F}));
}

TEST(Dib, RefusesMalformedOnes)
{
    for (std::size_t size = 0; size < paletted.size(); ++size) {
        // A copy, so that a sanitizer finds any read beyond the end.
        EXPECT_FALSE(
            gdi::readDib(Bytes(paletted.begin(), paletted.begin() + static_cast<int>(size))));
    }
    const std::pair<std::size_t, std::uint32_t> faults[] = {
        {0, 12},         {4, 0},           {4, 0xFFFFFFFF},  {4, 0x7FFFFFFF},  {8, 0x7FFFFFFF},
        {8, 0xFFFFFFFE}, {12, 0x00080002}, {12, 0x00010001}, {12, 0x00100001}, {16, 1},
        {32, 257},       {32, 0xFFFFFFFF}, {32, 0}};
    for (const auto &[at, value] : faults) {
        Bytes bytes = paletted;
        std::memcpy(bytes.data() + at, &value, sizeof value);
        EXPECT_FALSE(gdi::readDib(bytes)) << at << ": " << value;
    }
}
