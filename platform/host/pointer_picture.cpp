// The pen: light with a dark outline, to be visible on anything; yellow while it is down.
#include "host/pointer_picture.h"

#include <algorithm>
#include <string_view>

namespace host {
namespace {

constexpr int size = 14;
constexpr int before = 1; ///< rows and columns of it before the tip
/// '#' is the outline, 'o' the pen, 's' its shaded side, '.' nothing.
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

Pixel colourOf(char part, bool down, Pixel behind)
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

/// The first pixel of the pen on one axis, and whether the pen is turned over: near the far edge it
/// points from the other side.
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

Area pointerArea(const PointerLook &look, Size screen)
{
    const int left = lie(look.tip.x, screen.width).first;
    const int top = lie(look.tip.y, screen.height).first;
    return {std::max(left, 0), std::max(top, 0), std::min(left + size, screen.width),
            std::min(top + size, screen.height)};
}

std::vector<Pixel> pointerPixels(const PointerLook &look, const Frame &frame)
{
    const Span across = lie(look.tip.x, frame.width);
    const Span down = lie(look.tip.y, frame.height);
    const Area area = pointerArea(look, {frame.width, frame.height});
    std::vector<Pixel> pixels;
    for (int y = area.top; y < area.bottom; ++y) {
        for (int x = area.left; x < area.right; ++x) {
            const int row = down.turned ? down.first + size - 1 - y : y - down.first;
            const int column = across.turned ? across.first + size - 1 - x : x - across.first;
            pixels.push_back(colourOf(pen[row][static_cast<std::size_t>(column)], look.down,
                                      frame.pixels[y * frame.width + x]));
        }
    }
    return pixels;
}

} // namespace host
