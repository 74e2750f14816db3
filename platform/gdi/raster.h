// Pixels in memory and the loops over them. Nothing is clipped here: every rectangle must lie
// inside the raster.
#pragma once

#include <cstddef>

#include "gdi/pixel.h"
#include "windef.h"

namespace gdi {

/// A rectangle of pixels, row by row from the top without gaps. It does not own them.
struct Raster
{
    Pixel *pixels = nullptr;
    int width = 0;
    int height = 0;

    Pixel *at(int x, int y) const { return pixels + static_cast<std::ptrdiff_t>(y) * width + x; }
    RECT bounds() const { return {0, 0, width, height}; }
};

void fill(const Raster &raster, const RECT &part, Pixel pixel);
/// Copies to `part` from a rectangle of the same size whose corner is `source`. The two may
/// overlap in one raster.
void copy(const Raster &to, const RECT &part, const Raster &from, POINT source);
/// The same, without the pixels that equal `transparent`; the two must not overlap.
void copyTransparent(const Raster &to, const RECT &part, const Raster &from, POINT source,
                     Pixel transparent);

} // namespace gdi
