// The loops over pixels.
#include "gdi/raster.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace gdi {

namespace {

std::size_t bytes(LONG pixels) { return static_cast<std::size_t>(pixels) * sizeof(Pixel); }

/// Eight pixels are 16 bytes, one vector operation on every machine.
constexpr LONG groupSize = 8;
using Group = std::array<Pixel, groupSize>;

/// Distances from one row to the next, in pixels.
struct Pitches
{
    std::ptrdiff_t target;
    std::ptrdiff_t picture;
};

void write(Pixel *target, const Group &group) { std::memcpy(target, group.data(), sizeof group); }

/// Copies rows of one to two groups (a tile's rows, for example): each row is two groups, which may
/// overlap, so it takes neither a call nor a loop.
void copyNarrow(Pixel *target, const Pixel *picture, LONG width, LONG height, Pitches pitches)
{
    const LONG right = width - groupSize;
    for (LONG y = 0; y < height; ++y) {
        Group first;
        Group last;
        std::memcpy(first.data(), picture, sizeof first);
        std::memcpy(last.data(), picture + right, sizeof last);
        write(target, first);
        write(target + right, last);
        target += pitches.target;
        picture += pitches.picture;
    }
}

/// A group of the picture, with the target's pixels where it is transparent: so it can be written
/// as a whole, which saves the branches.
Group mixed(const Pixel *target, const Pixel *picture, Pixel transparent)
{
    Group old;
    Group fresh;
    std::memcpy(old.data(), target, sizeof old);
    std::memcpy(fresh.data(), picture, sizeof fresh);
    for (std::size_t i = 0; i < fresh.size(); ++i) {
        const auto keep = static_cast<Pixel>(fresh[i] == transparent ? 0xFFFF : 0);
        fresh[i] = static_cast<Pixel>((old[i] & keep) | (fresh[i] & ~keep));
    }
    return fresh;
}

} // namespace

void fill(const Raster &raster, const RECT &part, Pixel pixel)
{
    for (LONG y = part.top; y < part.bottom; ++y) {
        std::fill(raster.at(part.left, y), raster.at(part.right, y), pixel);
    }
}

void copy(const Raster &to, const RECT &part, const Raster &from, POINT source)
{
    const LONG width = part.right - part.left;
    const LONG height = part.bottom - part.top;
    Pixel *target = to.at(part.left, part.top);
    const Pixel *picture = from.at(source.x, source.y);
    if (width == to.width && width == from.width) {
        std::memmove(target, picture, bytes(width) * static_cast<std::size_t>(height));
        return;
    }
    Pitches pitches{to.width, from.width};
    if (to.pixels == from.pixels && source.y < part.top) {
        // Moving down inside one raster, copy the last row first, or it would be overwritten.
        target += (height - 1) * pitches.target;
        picture += (height - 1) * pitches.picture;
        pitches = {-pitches.target, -pitches.picture};
    }
    if (width >= groupSize && width <= 2 * groupSize) {
        copyNarrow(target, picture, width, height, pitches);
        return;
    }
    for (LONG y = 0; y < height; ++y) {
        std::memmove(target + y * pitches.target, picture + y * pitches.picture, bytes(width));
    }
}

void copyTransparent(const Raster &to, const RECT &part, const Raster &from, POINT source,
                     Pixel transparent)
{
    const LONG width = part.right - part.left;
    const LONG height = part.bottom - part.top;
    Pixel *target = to.at(part.left, part.top);
    const Pixel *picture = from.at(source.x, source.y);
    const int targetPitch = to.width;
    const int picturePitch = from.width;
    for (LONG y = 0; y < height; ++y, target += targetPitch, picture += picturePitch) {
        if (width >= groupSize && width <= 2 * groupSize) { // as in copyNarrow
            const LONG right = width - groupSize;
            const Group first = mixed(target, picture, transparent);
            const Group last = mixed(target + right, picture + right, transparent);
            write(target, first);
            write(target + right, last);
            continue;
        }
        LONG x = 0;
        for (; x <= width - groupSize; x += groupSize) {
            write(target + x, mixed(target + x, picture + x, transparent));
        }
        for (; x < width; ++x) {
            target[x] = picture[x] == transparent ? target[x] : picture[x];
        }
    }
}

} // namespace gdi
