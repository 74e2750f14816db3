// Where the window was and how large, kept from one run to the next in a file in the store's
// folder.
#pragma once

#include <filesystem>
#include <optional>
#include <span>

#include "host/host.h"
#include "host/sdl/picture.h"

namespace desktop {

/// In the desktop's coordinates. The corner is that of the frame that the desktop puts around the
/// window; the size is without the frame, and always that for the upright handheld.
struct WindowPlace
{
    Point corner;
    Size size;
};

/// What was kept; none when there is no such file or it is damaged.
std::optional<WindowPlace> loadWindowPlace(const std::filesystem::path &folder);
/// A failure is ignored: the window then opens in its usual place.
void saveWindowPlace(const std::filesystem::path &folder, const WindowPlace &place);

/// Whether the window fits on one of these screens, and enough of it is there to be dragged.
bool isOnScreen(const WindowPlace &place, std::span<const host::Area> screens);

} // namespace desktop
