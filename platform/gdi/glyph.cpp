// Glyphs of a strike. Every value on the play screen passes here, so a glyph that is not clipped
// goes four pixels at a time.
#include "gdi/glyph.h"

#include <array>
#include <cstring>

#include "gdi/rect.h"

namespace gdi {

namespace {

constexpr int pixelsPerByte = 8;

/// Four pixels as one number, the leftmost its lowest bits, and for each four bits of a glyph row
/// the mask of its pixels.
using Quad = std::uint64_t;

constexpr std::array<Quad, 16> makeMasks()
{
    std::array<Quad, 16> masks{};
    for (unsigned bits = 0; bits < masks.size(); bits++) {
        for (unsigned i = 0; i < 4; i++) {
            masks[bits] |= (bits << i & 8U) != 0 ? Quad{0xFFFF} << i * 16U : 0;
        }
    }
    return masks;
}

constexpr std::array<Quad, 16> masks = makeMasks();

LONG rowBytes(const Glyph &glyph) { return (glyph.width + pixelsPerByte - 1) / pixelsPerByte; }

/// Inks four pixels where the bits say so; the others are written as they were.
void inkQuad(Pixel *target, unsigned bits, Quad ink)
{
    Quad pixels;
    std::memcpy(&pixels, target, sizeof pixels);
    pixels ^= (pixels ^ ink) & masks[bits];
    std::memcpy(target, &pixels, sizeof pixels);
}

void drawWhole(const Raster &raster, const Glyph &glyph, const std::uint8_t *bits, POINT corner,
               Pixel ink)
{
    const Quad quad = ink * Quad{0x0001'0001'0001'0001};
    const LONG bytes = rowBytes(glyph);
    const int pitch = raster.width;
    Pixel *row = raster.at(corner.x, corner.y);
    for (int rows = glyph.height; rows > 0; rows--, row += pitch) {
        for (LONG i = 0; i < bytes; i++) {
            const unsigned byte = *bits++;
            inkQuad(row + i * pixelsPerByte, byte >> 4U, quad);
            inkQuad(row + i * pixelsPerByte + 4, byte & 0xFU, quad);
        }
    }
}

void drawPart(const Raster &raster, const RECT &part, const Glyph &glyph, const std::uint8_t *bits,
              POINT corner, Pixel ink)
{
    const RECT box{corner.x, corner.y, corner.x + glyph.width, corner.y + glyph.height};
    const RECT inside = intersection(box, part);
    for (LONG y = inside.top; y < inside.bottom; y++) {
        const std::uint8_t *row = bits + std::ptrdiff_t{y - corner.y} * rowBytes(glyph);
        for (LONG x = inside.left; x < inside.right; x++) {
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
