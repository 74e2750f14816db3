// Bitmaps as resources hold them.
#include <gtest/gtest.h>

#include "gdi/dib.h"

namespace {

using Bytes = std::vector<std::byte>;

void append(Bytes &bytes, std::uint32_t value, int size)
{
    for (int i = 0; i < size; i++) {
        bytes.push_back(static_cast<std::byte>(value >> 8 * i));
    }
}

Bytes header(int width, int height, unsigned bits, unsigned colours)
{
    Bytes bytes;
    append(bytes, 40, 4);
    append(bytes, static_cast<std::uint32_t>(width), 4);
    append(bytes, static_cast<std::uint32_t>(height), 4);
    append(bytes, 1, 2);
    append(bytes, bits, 2);
    append(bytes, 0, 4); // uncompressed
    bytes.resize(32);
    append(bytes, colours, 4);
    bytes.resize(40);
    return bytes;
}

/// 3 by 2, three colours; the upper row is 0 1 2, the lower 2 2 9.
Bytes paletted()
{
    Bytes bytes = header(3, 2, 8, 3);
    for (const std::uint32_t colour : {0x00FF0000U, 0x0000FF07U, 0x00070307U}) {
        append(bytes, colour, 4);
    }
    append(bytes, 0x00090202, 4);
    append(bytes, 0x00020100, 4);
    return bytes;
}

} // namespace

TEST(Dib, ReadsPalettesAndDropsLowBits)
{
    const auto bitmap = gdi::readDib(paletted());
    ASSERT_TRUE(bitmap);
    EXPECT_EQ(bitmap->storedBits, 8);
    const std::vector<gdi::Pixel> pixels(bitmap->pixels.get(), bitmap->pixels.get() + 6);
    // An index beyond the palette is black.
    EXPECT_EQ(pixels, (std::vector<gdi::Pixel>{0xF800, 0x07E0, 0, 0, 0, 0}));
}

TEST(Dib, Reads24Bits)
{
    Bytes bytes = header(1, 2, 24, 0);
    append(bytes, 0xFF0000FF, 4); // below: blue, and a byte of padding
    append(bytes, 0x00ADBEFF, 4);
    const auto bitmap = gdi::readDib(bytes);
    ASSERT_TRUE(bitmap);
    EXPECT_EQ(bitmap->storedBits, 24);
    EXPECT_EQ(bitmap->pixels[0], gdi::toPixel(RGB(173, 190, 255)));
    EXPECT_EQ(bitmap->pixels[1], 0x001F);
}

TEST(Dib, RefusesMalformedOnes)
{
    const Bytes whole = paletted();
    for (std::size_t size = 0; size < whole.size(); size++) {
        // A copy of its own, so that a sanitizer sees any step beyond the end.
        EXPECT_FALSE(gdi::readDib(Bytes(whole.begin(), whole.begin() + static_cast<int>(size))));
    }
    const struct
    {
        std::size_t at;
        std::uint32_t value;
    } faults[] = {{0, 12},          {4, 0},          {4, 0xFFFFFFFF},  {4, 0x7FFFFFFF},
                  {8, 0x7FFFFFFF},  {8, 0xFFFFFFFE}, {12, 0x00080002}, {12, 0x00010001},
                  {12, 0x00100001}, {16, 1},         {32, 257},        {32, 0xFFFFFFFF},
                  {32, 0}};
    for (const auto &[at, value] : faults) {
        Bytes bytes = whole;
        Bytes replacement;
        append(replacement, value, 4);
        std::copy(replacement.begin(), replacement.end(),
                  bytes.begin() + static_cast<std::ptrdiff_t>(at));
        EXPECT_FALSE(gdi::readDib(bytes)) << at << ": " << value;
    }
}
