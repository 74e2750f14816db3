// The choice of a strike for a font that a program describes.
#pragma once

#include "gdi/strikes/strike.h"
#include "wingdi.h"

namespace gdi {

/// "System", 8 point.
LOGFONTW systemFontDescription();
/// Of the strikes with that weight the one that comes nearest in height. A height of 0 asks for
/// the system font's. The handheld has one family of faces, so the name makes no difference.
const Strike &nearestStrike(const LOGFONTW &description);

} // namespace gdi
