// The file "window": width, height, left and top as decimal numbers.
#include "host/sdl/window_place.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace desktop {
namespace {

using File = std::unique_ptr<std::FILE, int (*)(std::FILE *)>;

/// C's files, because C++'s streams would load half a megabyte at every start.
File openIn(const std::filesystem::path &folder, const char *mode)
{
    return {std::fopen((folder / "window").c_str(), mode), std::fclose};
}

} // namespace

std::optional<WindowPlace> loadWindowPlace(const std::filesystem::path &folder)
{
    constexpr long farthest = 32767; // as far as coordinates go on a desktop
    const File file = openIn(folder, "r");
    char text[64];
    if (!file || !std::fgets(text, sizeof text, file.get())) {
        return std::nullopt;
    }
    std::array<int, 4> numbers{};
    char *at = text;
    for (int &number : numbers) {
        char *end = at;
        const long value = std::strtol(at, &end, 10);
        if (end == at || std::abs(value) > farthest) {
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
    if (const File file = openIn(folder, "w")) {
        std::fprintf(file.get(), "%d %d %d %d\n", place.size.width, place.size.height,
                     place.corner.x, place.corner.y);
    }
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
