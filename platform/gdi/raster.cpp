// The loops over pixels.
#include "gdi/raster.h"

#include <algorithm>
#include <cstring>

namespace gdi {

namespace {

std::size_t bytes(LONG pixels) { return static_cast<std::size_t>(pixels) * sizeof(Pixel); }

} // namespace

void fill(const Raster &raster, const RECT &part, Pixel pixel)
{
    for (LONG y = part.top; y < part.bottom; y++) {
        std::fill(raster.at(part.left, y), raster.at(part.right, y), pixel);
    }
}

void copy(const Raster &to, const RECT &part, const Raster &from, POINT source)
{
    const LONG width = part.right - part.left;
    const LONG height = part.bottom - part.top;
    if (width == to.width && width == from.width) {
        std::memmove(to.at(0, part.top), from.at(0, source.y),
                     bytes(width) * static_cast<std::size_t>(height));
        return;
    }
    // A picture that moves down inside one raster is copied from its last row up.
    const bool upwards = to.pixels == from.pixels && source.y < part.top;
    for (LONG i = 0; i < height; i++) {
        const LONG row = upwards ? height - 1 - i : i;
        std::memmove(to.at(part.left, part.top + row), from.at(source.x, source.y + row),
                     bytes(width));
    }
}

void copyTransparent(const Raster &to, const RECT &part, const Raster &from, POINT source,
                     Pixel transparent)
{
    const LONG width = part.right - part.left;
    for (LONG y = part.top; y < part.bottom; y++, source.y++) {
        Pixel *target = to.at(part.left, y);
        const Pixel *picture = from.at(source.x, source.y);
        // Writing every pixel, even with what it was, keeps the loop free of branches.
        for (LONG x = 0; x < width; x++) {
            target[x] = picture[x] == transparent ? target[x] : picture[x];
        }
    }
}

} // namespace gdi
