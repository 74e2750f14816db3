// Regions as lists of rectangles. There are few rectangles (one window over another), so every
// operation goes through the whole list.
#include "gdi/region.h"

#include <utility>

#include "gdi/rect.h"

namespace gdi {

namespace {

void append(std::vector<RECT> &rects, const RECT &rect)
{
    if (!isEmpty(rect)) {
        rects.push_back(rect);
    }
}

/// Appends the parts of `rect` outside `hole`: above it, left and right of it, below it.
void appendOutside(std::vector<RECT> &rects, const RECT &rect, const RECT &hole)
{
    const RECT common = intersection(rect, hole);
    if (isEmpty(common)) {
        append(rects, rect);
        return;
    }
    append(rects, {rect.left, rect.top, rect.right, common.top});
    append(rects, {rect.left, common.top, common.left, common.bottom});
    append(rects, {common.right, common.top, rect.right, common.bottom});
    append(rects, {rect.left, common.bottom, rect.right, rect.bottom});
}

} // namespace

Region::Region(const RECT &rect) { append(rects_, rect); }

RECT Region::bounds() const
{
    RECT around{};
    for (const RECT &rect : rects_) {
        around = enclosing(around, rect);
    }
    return around;
}

void Region::add(const RECT &rect)
{
    subtract(rect);
    append(rects_, rect);
}

void Region::add(const Region &other)
{
    for (const RECT &rect : other.rects_) {
        add(rect);
    }
}

void Region::subtract(const RECT &rect)
{
    if (isEmpty(rect)) {
        return;
    }
    std::vector<RECT> rest;
    for (const RECT &part : rects_) {
        appendOutside(rest, part, rect);
    }
    rects_ = std::move(rest);
}

void Region::subtract(const Region &other)
{
    for (const RECT &rect : other.rects_) {
        subtract(rect);
    }
}

void Region::intersect(const Region &other)
{
    std::vector<RECT> rest;
    for (const RECT &part : rects_) {
        for (const RECT &rect : other.rects_) {
            append(rest, intersection(part, rect));
        }
    }
    rects_ = std::move(rest);
}

void Region::offset(int dx, int dy)
{
    for (RECT &rect : rects_) {
        rect = moved(rect, dx, dy);
    }
}

} // namespace gdi
