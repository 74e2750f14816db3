// Device contexts on the screen, for the window manager.
#pragma once

#include <optional>

#include "gdi/screen.h"

namespace gdi {

/// A device context that draws on the screen, inside the visible part of `area` and, when given,
/// inside `within` (screen pixels). The area must outlive it. It starts with the settings of a new
/// memory device context.
[[nodiscard]] HDC openScreenDC(const ScreenArea &area, const std::optional<Region> &within);
/// False when `dc` is not a device context on the screen.
bool closeScreenDC(HDC dc);

} // namespace gdi
