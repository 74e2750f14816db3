// The file "window": width, height, left and top as decimal numbers.
#include "host/sdl/window_place.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>

#include "host/files.h"

namespace desktop {
namespace {

std::filesystem::path placeFile(const std::filesystem::path &folder) { return folder / "window"; }

} // namespace

std::optional<WindowPlace> loadWindowPlace(const std::filesystem::path &folder)
{
    constexpr long farthest = 32767; // as far as coordinates go on a desktop
    const auto text = host::readFile(placeFile(folder)).value;
    if (!text) {
        return std::nullopt;
    }
    std::array<int, 4> numbers{};
    const char *at = text->c_str();
    for (int &number : numbers) {
        char *end = nullptr;
        const long value = std::strtol(at, &end, 10);
        if (end == at || value < -farthest || value > farthest) {
            return std::nullopt;
        }
        number = static_cast<int>(value);
        at = end;
    }
    const auto [width, height, left, top] = numbers;
    return width > 0 && height > 0 ? std::optional(WindowPlace{{left, top}, {width, height}})
                                   : std::nullopt;
}

void saveWindowPlace(const std::filesystem::path &folder, const WindowPlace &place)
{
    std::string text;
    for (const int number : {place.size.width, place.size.height, place.corner.x, place.corner.y}) {
        text += std::to_string(number) + ' ';
    }
    text.back() = '\n';
    static_cast<void>(host::replaceFile(placeFile(folder), std::as_bytes(std::span(text))));
}

bool isOnScreen(const WindowPlace &place, std::span<const host::Area> screens)
{
    constexpr int grip = 64; // pixels of its upper edge, and of its height
    const Point corner = place.corner;
    const Size size = place.size;
    return std::ranges::any_of(screens, [&](const host::Area &screen) {
        const bool hasRoom =
            size.width <= screen.right - screen.left && size.height <= screen.bottom - screen.top;
        const int edge =
            std::min(corner.x + size.width, screen.right) - std::max(corner.x, screen.left);
        return hasRoom && edge >= grip && corner.y >= screen.top &&
               corner.y + grip <= screen.bottom;
    });
}

} // namespace desktop
