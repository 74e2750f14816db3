// Arithmetic on rectangles inside the drawing code. The functions for programs are in wingdi.h.
#pragma once

#include <algorithm>

#include "windef.h"

namespace gdi {

/// The largest coordinate that drawing accepts: beyond any bitmap, and sums of a few still fit.
constexpr LONG farthest = 1 << 27;
constexpr RECT everywhere{-farthest, -farthest, farthest, farthest};

constexpr bool isEmpty(const RECT &r) { return r.left >= r.right || r.top >= r.bottom; }

/// Whether all of `inner`, which is not empty, lies in `outer`.
constexpr bool holds(const RECT &outer, const RECT &inner)
{
    return outer.left <= inner.left && outer.top <= inner.top && outer.right >= inner.right &&
           outer.bottom >= inner.bottom;
}

/// The part common to both; empty when there is none. Most of what is drawn needs no clipping, and
/// a predicted branch finds that out sooner than the arithmetic.
constexpr RECT intersection(const RECT &a, const RECT &b)
{
    if (holds(b, a)) {
        return a;
    }
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

/// The smallest rectangle around both; an empty one does not count.
constexpr RECT enclosing(const RECT &a, const RECT &b)
{
    if (isEmpty(a)) {
        return b;
    }
    if (isEmpty(b)) {
        return a;
    }
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

constexpr RECT moved(const RECT &r, LONG dx, LONG dy)
{
    return {r.left + dx, r.top + dy, r.right + dx, r.bottom + dy};
}

constexpr RECT grown(const RECT &r, LONG by)
{
    return {r.left - by, r.top - by, r.right + by, r.bottom + by};
}

/// Whether drawing accepts these coordinates.
template <class... Number>
constexpr bool inReach(Number... numbers)
{
    return ((numbers >= -farthest && numbers <= farthest) && ...);
}

constexpr bool inReach(const RECT &r) { return inReach(r.left, r.top, r.right, r.bottom); }

} // namespace gdi
