// Compares four pixels in a step.
#include "host/shown_frame.h"

#include <algorithm>
#include <cstring>

namespace host {
namespace {

constexpr int step = 4;

std::uint64_t four(const Pixel *pixels)
{
    std::uint64_t bits;
    std::memcpy(&bits, pixels, sizeof bits);
    return bits;
}

} // namespace

Area ShownFrame::update(const Frame &frame, const Area &changed)
{
    const int width = frame.width;
    if (width != width_) {
        width_ = width;
        pixels_.assign(frame.pixels, frame.pixels + std::ptrdiff_t{width} * frame.height);
        return {0, 0, width, frame.height};
    }
    Area found{width, 0, 0, 0};
    for (int y = changed.top; y < changed.bottom; ++y) {
        const std::ptrdiff_t row = std::ptrdiff_t{y} * width;
        const Pixel *fresh = frame.pixels + row;
        Pixel *shown = pixels_.data() + row;
        for (int x = 0; x < width; x += step) {
            if (four(fresh + x) != four(shown + x)) {
                std::copy_n(fresh + x, step, shown + x);
                found.top = found.bottom == 0 ? y : found.top;
                found.left = std::min(found.left, x);
                found.right = std::max(found.right, x + step);
                found.bottom = y + 1;
            }
        }
    }
    return found.bottom != 0 ? found : Area{};
}

} // namespace host
