// The window manager as a whole.
#pragma once

namespace user {

/// Back to the state at switch-on: no window, no message, no timer, no key down.
void reset();

} // namespace user
