// Glyphs of a strike: which one shows a character, and how its pixels get into a raster.
#pragma once

#include "gdi/raster.h"
#include "gdi/strikes/strike.h"

namespace gdi {

/// The character's glyph, or the box.
const Glyph &glyphOf(const Strike &strike, char16_t character);

/// Draws a glyph, the pen at `pen` on the baseline, as far as it lies in `part` of the raster.
void drawGlyph(const Raster &raster, const RECT &part, const Strike &strike, const Glyph &glyph,
               POINT pen, Pixel ink);

} // namespace gdi
