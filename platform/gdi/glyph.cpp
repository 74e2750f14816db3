// Glyphs of a strike. All text of the play screen is drawn here, so a glyph that needs no clipping
// is drawn eight pixels at a time.
#include "gdi/glyph.h"

#include <array>
#include <cstring>

#include "gdi/rect.h"

namespace gdi {

namespace {

constexpr int pixelsPerByte = 8;

/// Eight pixels as two numbers; the leftmost pixel is the lowest 16 bits of the first.
using Group = std::array<std::uint64_t, 2>;

/// For each byte of a glyph's row, the mask of the pixels that it sets.
constexpr std::array<Group, 256> makeMasks()
{
    std::array<Group, 256> masks{};
    for (unsigned byte = 0; byte < masks.size(); ++byte) {
        for (unsigned i = 0; i < pixelsPerByte; ++i) {
            const std::uint64_t mask = (byte << i & 0x80U) != 0 ? 0xFFFF : 0;
            masks[byte][i / 4] |= mask << i % 4 * 16;
        }
    }
    return masks;
}

constexpr std::array<Group, 256> masks = makeMasks();

LONG rowBytes(const Glyph &glyph) { return (glyph.width + pixelsPerByte - 1) / pixelsPerByte; }

/// Colours the pixels of a mask. The others are written back unchanged, which saves the branches.
void inkGroup(Pixel *target, const Group &mask, std::uint64_t ink)
{
    Group pixels;
    std::memcpy(pixels.data(), target, sizeof pixels);
    pixels[0] ^= (pixels[0] ^ ink) & mask[0];
    pixels[1] ^= (pixels[1] ^ ink) & mask[1];
    std::memcpy(target, pixels.data(), sizeof pixels);
}

/// Draws column by column, eight pixels wide: most glyphs have only one.
void drawWhole(const Raster &raster, const Glyph &glyph, const std::uint8_t *bits, POINT corner,
               Pixel ink)
{
    const std::uint64_t inks = ink * std::uint64_t{0x0001'0001'0001'0001};
    const int pitch = raster.width;
    const LONG bytes = rowBytes(glyph);
    const std::uint8_t *end = bits + bytes * glyph.height;
    for (LONG i = 0; i < bytes; ++i) {
        Pixel *target = raster.at(corner.x + i * pixelsPerByte, corner.y);
        for (const std::uint8_t *byte = bits + i; byte < end; byte += bytes, target += pitch) {
            inkGroup(target, masks[*byte], inks);
        }
    }
}

/// Draws only what lies in `inside`.
void drawPart(const Raster &raster, const RECT &inside, const Glyph &glyph,
              const std::uint8_t *bits, POINT corner, Pixel ink)
{
    for (LONG y = inside.top; y < inside.bottom; ++y) {
        const std::uint8_t *row = bits + std::ptrdiff_t{y - corner.y} * rowBytes(glyph);
        for (LONG x = inside.left; x < inside.right; ++x) {
            const LONG column = x - corner.x;
            if ((row[column / pixelsPerByte] << column % pixelsPerByte & 0x80) != 0) {
                *raster.at(x, y) = ink;
            }
        }
    }
}

} // namespace

void drawGlyph(const Raster &raster, const RECT &part, const Strike &strike, const Glyph &glyph,
               POINT pen, Pixel ink)
{
    const POINT corner{pen.x + glyph.left, pen.y - glyph.top};
    const std::uint8_t *bits = strike.bits + glyph.bits;
    const RECT box{corner.x, corner.y, corner.x + glyph.width, corner.y + glyph.height};
    // drawWhole writes full bytes, which may reach beyond the glyph but not beyond the raster.
    if (holds(part, box) && corner.x + rowBytes(glyph) * pixelsPerByte <= raster.width) {
        drawWhole(raster, glyph, bits, corner, ink);
    } else {
        drawPart(raster, intersection(box, part), glyph, bits, corner, ink);
    }
}

} // namespace gdi
