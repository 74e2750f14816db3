// The picture behind the title page and the high-score page.
#pragma once

#include "render/surface.h"

/// 240 by 268 pixels; owned by the title screen.
extern Surface *titleBitmap;
/// Copies it to `target`; it is selected into `source` meanwhile.
void drawTitleBackground(HDC source, HDC target);
