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
    const Point corner = place.corner;
    const Size size = place.size;
    return std::ranges::any_of(screens, [&](const host::Area &screen) {
        const bool hasRoom =
            size.width <= screen.right - screen.left && size.height <= screen.bottom - screen.top;
        const int edge =
            std::min(corner.x + size.width, screen.right) - std::max(corner.x, screen.left);
        return hasRoom && edge >= hold && corner.y >= screen.top &&
               corner.y + hold <= screen.bottom;
    });
}

} // namespace desktop
