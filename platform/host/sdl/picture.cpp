// Enlarging: each row is made once and copied to the rows below it.
#include "host/sdl/picture.h"

#include <algorithm>
#include <cstring>

#include "host/pixel.h"

namespace desktop {
namespace {

/// `a` divided by `b`, rounded down.
int floorDivide(int a, int b) { return a >= 0 ? a / b : -((b - 1 - a) / b); }

/// Limits a range of picture pixels to those that lie wholly on the canvas.
void clip(int &low, int &high, int offset, int scale, int canvasLength)
{
    low = std::max(low, -floorDivide(offset, scale));
    high = std::min(high, floorDivide(canvasLength - offset, scale));
}

std::uint32_t toCanvas(host::Pixel pixel, const Canvas &canvas)
{
    const auto [red, green, blue] = host::unpack(pixel);
    return std::uint32_t{red} << canvas.redShift | std::uint32_t{green} << canvas.greenShift |
           std::uint32_t{blue} << canvas.blueShift;
}

} // namespace

Placement place(Size picture, Size window)
{
    const int scale =
        std::max(1, std::min(window.width / picture.width, window.height / picture.height));
    return {scale, floorDivide(window.width - picture.width * scale, 2),
            floorDivide(window.height - picture.height * scale, 2)};
}

Point toPixels(Point point, Size points, Size pixels)
{
    const auto scaled = [](int at, int length, int wanted) {
        return length > 0 ? floorDivide((2 * at + 1) * wanted, 2 * length) : at;
    };
    return {scaled(point.x, points.width, pixels.width),
            scaled(point.y, points.height, pixels.height)};
}

std::optional<Point> toPicture(Point window, const Placement &placement, Size picture, bool outside)
{
    const Point pixel{floorDivide(window.x - placement.left, placement.scale),
                      floorDivide(window.y - placement.top, placement.scale)};
    const Point nearest{std::clamp(pixel.x, 0, picture.width - 1),
                        std::clamp(pixel.y, 0, picture.height - 1)};
    return outside || pixel == nearest ? std::optional(nearest) : std::nullopt;
}

host::Area drawEnlarged(const host::Frame &frame, host::Area part, const Placement &placement,
                        const Canvas &canvas)
{
    const int scale = placement.scale;
    part = {std::max(part.left, 0), std::max(part.top, 0), std::min(part.right, frame.width),
            std::min(part.bottom, frame.height)};
    clip(part.left, part.right, placement.left, scale, canvas.size.width);
    clip(part.top, part.bottom, placement.top, scale, canvas.size.height);
    if (part.left >= part.right || part.top >= part.bottom) {
        return {};
    }
    const host::Area changed{placement.left + part.left * scale, placement.top + part.top * scale,
                             placement.left + part.right * scale,
                             placement.top + part.bottom * scale};
    const auto offset = static_cast<std::size_t>(changed.left) * sizeof(std::uint32_t);
    std::vector<std::uint32_t> row(static_cast<std::size_t>(changed.right - changed.left));
    for (int y = part.top; y < part.bottom; ++y) {
        const std::uint16_t *source = frame.pixels + std::ptrdiff_t{y} * frame.width + part.left;
        for (auto target = row.begin(); target != row.end(); target += scale) {
            std::fill_n(target, scale, toCanvas(*source++, canvas));
        }
        for (int i = 0; i < scale; ++i) {
            const auto line = static_cast<std::size_t>(placement.top + y * scale + i);
            std::memcpy(canvas.pixels + line * canvas.pitch + offset, row.data(),
                        row.size() * sizeof(std::uint32_t));
        }
    }
    return changed;
}

} // namespace desktop
