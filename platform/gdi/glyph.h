// Glyphs of a strike: finding the one for a character, and drawing it.
#pragma once

#include "gdi/raster.h"
#include "gdi/strikes/strike.h"

namespace gdi {

/// The glyph of a character; the box when the strike has none.
const Glyph &glyphOf(const Strike &strike, char16_t character);

/// Draws a glyph, the pen at `pen` on the baseline, as far as it lies in `part` of the raster.
void drawGlyph(const Raster &raster, const RECT &part, const Strike &strike, const Glyph &glyph,
               POINT pen, Pixel ink);

} // namespace gdi
