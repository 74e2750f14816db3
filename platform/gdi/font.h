// The choice of a strike for a font that a program describes.
#pragma once

#include "gdi/strikes/strike.h"
#include "wingdi.h"

namespace gdi {

/// "System", 8 point.
LOGFONTW systemFontDescription();
/// The strike of that weight with the nearest height; 0 means the height of the system font. There
/// is only one family of fonts, so the name is ignored.
const Strike &nearestStrike(const LOGFONTW &description);

} // namespace gdi
