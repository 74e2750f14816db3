// The pen is light with a dark outline, so that it is seen on anything. While it is down it is
// coloured.
#include "host/sdl/pointer_picture.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace desktop {
namespace {

constexpr int size = 14;
constexpr int before = 1; ///< rows and columns before the tip
/// '#' is the outline, 'o' the pen, 's' its shaded side, '.' what is behind it.
constexpr std::string_view pen[size] = {
    "##............", //
    "#o##..........", //
    ".#oo##........", //
    ".#oooo#.......", //
    "..#ooo##......", //
    "..#oo#oo#.....", //
    "...##oooo#....", //
    "....#soooo#...", //
    ".....#soooo#..", //
    "......#soooo#.", //
    ".......#soooo#", //
    "........#soo#.", //
    ".........#s#..", //
    "..........#...", //
};

std::uint16_t colourOf(char part, bool down, std::uint16_t behind)
{
    switch (part) {
    case '#':
        return 0x0000;
    case 'o':
        return down ? 0xFEA0 : 0xFFFF;
    case 's':
        return down ? 0xBC40 : 0x9D17;
    default:
        return behind;
    }
}

/// Where the first pixel of the pen lies on one axis, and whether the pen is mirrored there,
/// because it has no room on the usual side of the tip.
struct Span
{
    int first;
    bool turned;
};

Span lie(int tip, int length)
{
    const bool turned = tip - before + size > length;
    return {turned ? tip + before - size + 1 : tip - before, turned};
}

} // namespace

host::Area pointerArea(const PointerLook &look, Size screen)
{
    const int left = lie(look.tip.x, screen.width).first;
    const int top = lie(look.tip.y, screen.height).first;
    return {std::max(left, 0), std::max(top, 0), std::min(left + size, screen.width),
            std::min(top + size, screen.height)};
}

void drawPointer(const PointerLook &look, const host::Frame &frame, const Placement &placement,
                 const Canvas &canvas)
{
    const Span across = lie(look.tip.x, frame.width);
    const Span down = lie(look.tip.y, frame.height);
    const host::Area area = pointerArea(look, {frame.width, frame.height});
    const host::Area part{area.left - across.first, area.top - down.first,
                          area.right - across.first, area.bottom - down.first};
    std::array<std::uint16_t, size * size> pixels{};
    for (int y = part.top; y < part.bottom; ++y) {
        for (int x = part.left; x < part.right; ++x) {
            const int row = down.turned ? size - 1 - y : y;
            const int column = across.turned ? size - 1 - x : x;
            pixels[static_cast<std::size_t>(y * size + x)] =
                colourOf(pen[row][static_cast<std::size_t>(column)], look.down,
                         frame.pixels[(down.first + y) * frame.width + across.first + x]);
        }
    }
    const int scale = placement.scale;
    drawEnlarged({pixels.data(), size, size}, part,
                 {scale, placement.left + across.first * scale, placement.top + down.first * scale},
                 canvas);
}

} // namespace desktop
