// The registry as a part of the handheld.
#pragma once

namespace registry {

/// Back to the state at switch-on: no key open, nothing loaded. The next use reads the store.
void reset();

} // namespace registry
