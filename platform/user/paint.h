// Invalid parts of windows, and the messages that ask for them to be drawn.
#pragma once

#include <optional>

#include "user/window.h"

namespace user {

/// Marks a part of a window, in screen pixels, for WM_PAINT. Covered pixels are left out:
/// uncovering them marks them.
void invalidate(Window &window, const gdi::Region &part, bool erase);
/// The same for the whole of a window and its children.
void invalidateAll(Window &window);
/// WM_PAINT for the frontmost window with an invalid part, if there is one.
std::optional<MSG> takePaintMessage();
/// Has the host show what changed since the last call.
void presentFrame();

} // namespace user
