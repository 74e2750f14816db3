// Invalid parts of windows and the messages that have them drawn.
#pragma once

#include <optional>

#include "user/window.h"

namespace user {

/// Marks a part of a window, in screen pixels, for WM_PAINT; what cannot be seen of it is left
/// out, for uncovering it will mark it.
void invalidate(Window &window, const gdi::Region &part, bool erase);
/// The same for the whole of a window and its children.
void invalidateAll(Window &window);
/// WM_PAINT for a window of which something is invalid.
std::optional<MSG> takePaintMessage();
/// Has the host show what was drawn since the last time.
void presentFrame();

} // namespace user
