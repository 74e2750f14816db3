// Device contexts on the screen, for the window manager.
#pragma once

#include <optional>

#include "gdi/screen.h"

namespace gdi {

/// A device context on the screen, inside the visible part of `area`, which must outlive it, and,
/// when given, of `within` (screen pixels). It starts with the settings of a memory one.
[[nodiscard]] HDC openScreenDC(const ScreenArea &area, const std::optional<Region> &within);
/// False when `dc` is not a device context on the screen.
bool closeScreenDC(HDC dc);

} // namespace gdi
