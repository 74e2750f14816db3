// The file "window": width, height, left and top as decimal numbers.
#include "host/sdl/window_place.h"

#include <algorithm>
#include <fstream>

namespace desktop {
namespace {

std::filesystem::path fileIn(const std::filesystem::path &folder) { return folder / "window"; }

} // namespace

std::optional<WindowPlace> loadWindowPlace(const std::filesystem::path &folder)
{
    constexpr int farthest = 32767; // as far as coordinates go on a desktop
    const auto isNear = [](int number) { return number >= -farthest && number <= farthest; };
    WindowPlace place;
    std::ifstream file(fileIn(folder));
    file >> place.size.width >> place.size.height >> place.corner.x >> place.corner.y;
    const bool sound = file && place.size.width > 0 && place.size.height > 0 &&
                       isNear(place.size.width) && isNear(place.size.height) &&
                       isNear(place.corner.x) && isNear(place.corner.y);
    return sound ? std::optional(place) : std::nullopt;
}

void saveWindowPlace(const std::filesystem::path &folder, const WindowPlace &place)
{
    std::ofstream(fileIn(folder)) << place.size.width << ' ' << place.size.height << ' '
                                  << place.corner.x << ' ' << place.corner.y << '\n';
}

bool isOnScreen(const WindowPlace &place, std::span<const host::Area> screens)
{
    constexpr int hold = 64; // pixels of its upper edge and below it
    const auto [left, top] = place.corner;
    const auto [width, height] = place.size;
    return std::ranges::any_of(screens, [&](const host::Area &screen) {
        const bool hasRoom =
            width <= screen.right - screen.left && height <= screen.bottom - screen.top;
        const int edge = std::min(left + width, screen.right) - std::max(left, screen.left);
        return hasRoom && edge >= hold && top >= screen.top && top + hold <= screen.bottom;
    });
}

} // namespace desktop
