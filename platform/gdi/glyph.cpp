// Glyphs of a strike. Every value on the play screen passes here, so a glyph that is not clipped
// goes eight pixels at a time.
#include "gdi/glyph.h"

#include <array>
#include <cstring>

#include "gdi/rect.h"

namespace gdi {

namespace {

constexpr int pixelsPerByte = 8;

/// As many pixels as a byte of a glyph has bits, and the bit of each.
using Group = std::array<Pixel, pixelsPerByte>;
constexpr Group bitOf{0x80, 0x40, 0x20, 0x10, 0x08, 0x04, 0x02, 0x01};

LONG rowBytes(const Glyph &glyph) { return (glyph.width + pixelsPerByte - 1) / pixelsPerByte; }

/// Inks the pixels whose bits are set; the others are written as they were: no branches.
void inkGroup(Pixel *target, std::uint8_t byte, Pixel ink)
{
    Group pixels;
    std::memcpy(pixels.data(), target, sizeof pixels);
    for (std::size_t i = 0; i < pixels.size(); i++) {
        const auto inked = static_cast<Pixel>((byte & bitOf[i]) != 0 ? 0xFFFF : 0);
        pixels[i] = static_cast<Pixel>((pixels[i] & ~inked) | (ink & inked));
    }
    std::memcpy(target, pixels.data(), sizeof pixels);
}

void drawWhole(const Raster &raster, const Glyph &glyph, const std::uint8_t *bits, POINT corner,
               Pixel ink)
{
    const LONG bytes = rowBytes(glyph);
    for (LONG y = corner.y; y < corner.y + glyph.height; y++) {
        Pixel *row = raster.at(corner.x, y);
        for (LONG i = 0; i < bytes; i++) {
            inkGroup(row + i * pixelsPerByte, *bits++, ink);
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
