// Filled shapes, lines and single pixels.
#include <cstdlib>
#include <limits>
#include <span>
#include <utility>

#include "gdi/canvas.h"

namespace gdi {

namespace {

using Points = std::span<const POINT>;

void fillRect(const DeviceContext &dc, const RECT &rect, std::optional<Pixel> pixel)
{
    if (pixel) {
        paint(dc, rect,
              [=](const Raster &raster, POINT, const RECT &part) { fill(raster, part, *pixel); });
    }
}

void setPixel(const DeviceContext &dc, LONG x, LONG y, Pixel pixel)
{
    fillRect(dc, {x, y, x + 1, y + 1}, pixel);
}

/// A border one pixel wide, inside the rectangle.
void frameRect(const DeviceContext &dc, const RECT &r, std::optional<Pixel> pixel)
{
    if (!isEmpty(r)) {
        fillRect(dc, {r.left, r.top, r.right, r.top + 1}, pixel);
        fillRect(dc, {r.left, r.bottom - 1, r.right, r.bottom}, pixel);
        fillRect(dc, {r.left, r.top, r.left + 1, r.bottom}, pixel);
        fillRect(dc, {r.right - 1, r.top, r.right, r.bottom}, pixel);
    }
}

/// A line without its last pixel: one pixel for each step along the longer axis.
void drawLine(const DeviceContext &dc, POINT from, POINT to, Pixel pixel)
{
    const LONG steps = std::max(std::abs(to.x - from.x), std::abs(to.y - from.y));
    const auto between = [steps](LONG start, LONG end, std::int64_t step) {
        const std::int64_t twice = 2 * step * (end - start);
        return start + static_cast<LONG>((twice + (twice < 0 ? -steps : steps)) /
                                         (2 * std::int64_t{steps}));
    };
    for (LONG step = 0; step < steps; step++) {
        setPixel(dc, between(from.x, to.x, step), between(from.y, to.y, step), pixel);
    }
}

/// Every point in reach, so that differences of coordinates fit.
bool areInReach(Points points)
{
    return std::all_of(points.begin(), points.end(),
                       [](const POINT &point) { return inReach(point.x, point.y); });
}

void drawLines(const DeviceContext &dc, Points points)
{
    if (const std::optional<Pixel> pixel = dc.selected<Pen>().pixel) {
        for (std::size_t i = 1; i < points.size(); i++) {
            drawLine(dc, points[i - 1], points[i], *pixel);
        }
    }
}

/// Where an edge crosses row `y`: the first column not left of it. None for an edge that does
/// not; its lower end does not count, so that edges that meet there count once.
std::optional<LONG> crossing(POINT a, POINT b, LONG y)
{
    if (a.y > b.y) {
        std::swap(a, b);
    }
    if (y < a.y || y >= b.y) {
        return std::nullopt;
    }
    const std::int64_t height = b.y - a.y;
    const std::int64_t across = static_cast<std::int64_t>(b.x - a.x) * (y - a.y);
    // Division rounds towards zero, which is up when the edge runs to the left.
    return a.x + static_cast<LONG>((across > 0 ? across + height - 1 : across) / height);
}

/// A crossing of a row and the edge that makes it; crossings of one column follow edge by edge.
using Crossing = std::pair<LONG, std::size_t>;
constexpr Crossing noCrossing{std::numeric_limits<LONG>::max(), 0};

/// The next crossing of row `y` after `last`.
Crossing nextCrossing(Points corners, LONG y, const Crossing &last)
{
    Crossing next = noCrossing;
    for (std::size_t edge = 0; edge < corners.size(); edge++) {
        const POINT end = corners[(edge + 1) % corners.size()];
        if (const std::optional<LONG> x = crossing(corners[edge], end, y)) {
            const Crossing candidate{*x, edge};
            if (candidate > last && candidate < next) {
                next = candidate;
            }
        }
    }
    return next;
}

/// Fills between every other crossing of each row with the outline.
void fillPolygon(const DeviceContext &dc, Points corners)
{
    const std::optional<Pixel> pixel = dc.selected<Brush>().pixel;
    const auto [top, bottom] = std::minmax_element(
        corners.begin(), corners.end(), [](const POINT &a, const POINT &b) { return a.y < b.y; });
    const Extent extent = extentOf(dc);
    const LONG first = std::max(top->y, extent.bounds.top - extent.origin.y);
    const LONG end = std::min(bottom->y, extent.bounds.bottom - extent.origin.y);
    for (LONG y = first; y < end; y++) {
        Crossing last{std::numeric_limits<LONG>::min(), 0};
        for (;;) {
            const Crossing from = nextCrossing(corners, y, last);
            if (from == noCrossing) {
                break;
            }
            last = nextCrossing(corners, y, from);
            fillRect(dc, {from.first, y, last.first, y + 1}, pixel);
        }
    }
}

} // namespace

} // namespace gdi

int FillRect(HDC dc, const RECT *rect, HBRUSH brush)
{
    const auto *context = gdi::find<gdi::DeviceContext>(dc.value);
    const auto *filling = gdi::find<gdi::Brush>(brush.value);
    if (!context || !filling || !rect || !gdi::inReach(*rect)) {
        return FALSE;
    }
    gdi::fillRect(*context, *rect, filling->pixel);
    return TRUE;
}

BOOL Rectangle(HDC dc, int left, int top, int right, int bottom)
{
    const auto *context = gdi::find<gdi::DeviceContext>(dc.value);
    if (!context || !gdi::inReach(left, top, right, bottom)) {
        return FALSE;
    }
    const RECT rect{left, top, right, bottom};
    gdi::fillRect(*context, rect, context->selected<gdi::Brush>().pixel);
    gdi::frameRect(*context, rect, context->selected<gdi::Pen>().pixel);
    return TRUE;
}

BOOL Polyline(HDC dc, const POINT *points, int count)
{
    const auto *context = gdi::find<gdi::DeviceContext>(dc.value);
    if (!context || !points || count < 2) {
        return FALSE;
    }
    const gdi::Points line(points, static_cast<std::size_t>(count));
    if (!gdi::areInReach(line)) {
        return FALSE;
    }
    gdi::drawLines(*context, line);
    return TRUE;
}

BOOL Polygon(HDC dc, const POINT *points, int count)
{
    const auto *context = gdi::find<gdi::DeviceContext>(dc.value);
    if (!context || !points || count < 2) {
        return FALSE;
    }
    const gdi::Points corners(points, static_cast<std::size_t>(count));
    if (!gdi::areInReach(corners)) {
        return FALSE;
    }
    gdi::fillPolygon(*context, corners);
    gdi::drawLines(*context, corners);
    const std::array closing{corners.back(), corners.front()};
    gdi::drawLines(*context, closing);
    return TRUE;
}

BOOL DrawFocusRect(HDC dc, const RECT *rect)
{
    const auto *context = gdi::find<gdi::DeviceContext>(dc.value);
    if (!context || !rect || !gdi::inReach(*rect) || gdi::isEmpty(*rect)) {
        return FALSE;
    }
    gdi::paint(*context, *rect, [rect](const gdi::Raster &raster, POINT origin, const RECT &part) {
        for (LONG y = part.top; y < part.bottom; y++) {
            for (LONG x = part.left; x < part.right; x++) {
                const LONG right = x - origin.x - rect->left;
                const LONG down = y - origin.y - rect->top;
                const bool border = right == 0 || down == 0 || x - origin.x == rect->right - 1 ||
                                    y - origin.y == rect->bottom - 1;
                if (border && (right + down) % 2 == 0) {
                    *raster.at(x, y) = gdi::toPixel(RGB(0, 0, 0));
                }
            }
        }
    });
    return TRUE;
}

COLORREF SetPixel(HDC dc, int x, int y, COLORREF colour)
{
    const auto *context = gdi::find<gdi::DeviceContext>(dc.value);
    if (!context || !gdi::inReach(x, y)) {
        return CLR_INVALID;
    }
    gdi::setPixel(*context, x, y, gdi::toPixel(colour));
    return gdi::toColour(gdi::toPixel(colour));
}

COLORREF GetPixel(HDC dc, int x, int y)
{
    const auto *context = gdi::find<gdi::DeviceContext>(dc.value);
    if (!context || !gdi::inReach(x, y)) {
        return CLR_INVALID;
    }
    const gdi::Extent extent = gdi::extentOf(*context);
    const LONG column = x + extent.origin.x;
    const LONG row = y + extent.origin.y;
    if (!PtInRect(&extent.bounds, {column, row})) {
        return CLR_INVALID;
    }
    return gdi::toColour(*extent.raster.at(column, row));
}
