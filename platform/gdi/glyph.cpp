// Glyphs of a strike. Every value on the play screen passes here, so a glyph that is not clipped
// goes eight pixels at a time.
#include "gdi/glyph.h"

#include <array>
#include <cstring>

#include "gdi/rect.h"

namespace gdi {

namespace {

constexpr int pixelsPerByte = 8;

/// As many pixels as a byte of a glyph has bits, as two numbers: the leftmost pixel is the lowest
/// bits of the first. And for each byte of a glyph row the mask of its pixels.
using Group = std::array<std::uint64_t, 2>;

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

/// Inks the pixels of a mask; the others are written as they were: no branches.
void inkGroup(Pixel *target, const Group &mask, std::uint64_t ink)
{
    Group pixels;
    std::memcpy(pixels.data(), target, sizeof pixels);
    pixels[0] ^= (pixels[0] ^ ink) & mask[0];
    pixels[1] ^= (pixels[1] ^ ink) & mask[1];
    std::memcpy(target, pixels.data(), sizeof pixels);
}

/// Goes down the columns of eight pixels: most glyphs have one.
void drawWhole(const Raster &raster, const Glyph &glyph, const std::uint8_t *bits, POINT corner,
               Pixel ink)
{
    const std::uint64_t inks = ink * std::uint64_t{0x0001'0001'0001'0001};
    const LONG bytes = rowBytes(glyph);
    const int pitch = raster.width;
    for (LONG i = 0; i < bytes; ++i) {
        Pixel *target = raster.at(corner.x + i * pixelsPerByte, corner.y);
        for (int row = 0; row < glyph.height; ++row) {
            inkGroup(target + row * pitch, masks[bits[row * bytes + i]], inks);
        }
    }
}

void drawPart(const Raster &raster, const RECT &part, const Glyph &glyph, const std::uint8_t *bits,
              POINT corner, Pixel ink)
{
    const RECT box{corner.x, corner.y, corner.x + glyph.width, corner.y + glyph.height};
    const RECT inside = intersection(box, part);
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

const Glyph &glyphOf(const Strike &strike, char16_t character)
{
    for (const CharacterRun &run : strike.runs) {
        if (character >= run.first && character <= run.last) {
            return strike.glyphs[run.glyph + static_cast<std::size_t>(character - run.first)];
        }
    }
    return strike.glyphs[0];
}

void drawGlyph(const Raster &raster, const RECT &part, const Strike &strike, const Glyph &glyph,
               POINT pen, Pixel ink)
{
    const POINT corner{pen.x + glyph.left, pen.y - glyph.top};
    const std::uint8_t *bits = strike.bits + glyph.bits;
    const RECT box{corner.x, corner.y, corner.x + glyph.width, corner.y + glyph.height};
    // Drawn whole, a row's last byte reaches beyond the glyph, but must not beyond the raster.
    if (holds(part, box) && corner.x + rowBytes(glyph) * pixelsPerByte <= raster.width) {
        drawWhole(raster, glyph, bits, corner, ink);
    } else {
        drawPart(raster, part, glyph, bits, corner, ink);
    }
}

} // namespace gdi
