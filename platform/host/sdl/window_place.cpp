// The file "window": width, height, left and top as decimal numbers.
#include "host/sdl/window_place.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <fstream>
#include <memory>
#include <string_view>

namespace desktop {
namespace {

std::filesystem::path fileIn(const std::filesystem::path &folder) { return folder / "window"; }

using Numbers = std::array<int, 4>;

/// The numbers in a file. Read without a stream, for streams would load half a megabyte at every
/// start.
std::optional<Numbers> readNumbers(const std::filesystem::path &name)
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE *)> file(std::fopen(name.c_str(), "r"),
                                                                std::fclose);
    char text[64];
    if (!file || !std::fgets(text, sizeof text, file.get())) {
        return std::nullopt;
    }
    Numbers numbers{};
    std::string_view rest(text);
    for (int &number : numbers) {
        rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
        const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), number);
        if (error != std::errc()) {
            return std::nullopt;
        }
        rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
    }
    return numbers;
}

} // namespace

std::optional<WindowPlace> loadWindowPlace(const std::filesystem::path &folder)
{
    constexpr int farthest = 32767; // as far as coordinates go on a desktop
    const auto isNear = [](int number) { return number >= -farthest && number <= farthest; };
    const std::optional<Numbers> numbers = readNumbers(fileIn(folder));
    if (!numbers) {
        return std::nullopt;
    }
    const auto [width, height, left, top] = *numbers;
    const WindowPlace place{{width, height}, {left, top}};
    const bool sound = place.size.width > 0 && place.size.height > 0 && isNear(place.size.width) &&
                       isNear(place.size.height) && isNear(place.corner.x) &&
                       isNear(place.corner.y);
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
