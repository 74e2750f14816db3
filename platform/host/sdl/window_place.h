// Where the window was and how large, kept from one run to the next: a line of text in the store's
// folder.
#pragma once

#include <filesystem>
#include <optional>
#include <span>

#include "host/host.h"
#include "host/sdl/picture.h"

namespace desktop {

/// In the desktop's coordinates. The corner is that of the frame which the desktop puts around the
/// window; the size is without it, and with the handheld upright, whichever way it was turned.
struct WindowPlace
{
    Point corner;
    Size size;
};

/// What was kept; nothing when there is nothing, or not what was written.
std::optional<WindowPlace> loadWindowPlace(const std::filesystem::path &folder);
/// Without a word when it cannot: the window then opens where any does.
void saveWindowPlace(const std::filesystem::path &folder, const WindowPlace &place);

/// Whether the window has room on one of these screens, and enough of it is there to take hold of.
bool isOnScreen(const WindowPlace &place, std::span<const host::Area> screens);

} // namespace desktop
