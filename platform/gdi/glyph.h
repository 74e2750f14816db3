// Glyphs of a strike: finding the one for a character, and drawing it.
#pragma once

#include "gdi/raster.h"
#include "gdi/strikes/strike.h"

namespace gdi {

/// The glyph of a character; the box when the strike has none.
inline const Glyph &glyphOf(const Strike &strike, char16_t character)
{
    for (const CharacterRun &run : strike.runs) {
        if (character >= run.first && character <= run.last) {
            return strike.glyphs[run.glyph + static_cast<std::size_t>(character - run.first)];
        }
    }
    return strike.glyphs[0];
}

/// Draws a glyph, the pen at `pen` on the baseline, as far as it lies in `part` of the raster.
void drawGlyph(const Raster &raster, const RECT &part, const Strike &strike, const Glyph &glyph,
               POINT pen, Pixel ink);

} // namespace gdi
