// The registry as a part of the handheld.
#pragma once

namespace registry {

/// Back to the state at switch-on: no key open, nothing loaded. The store is read at the first
/// use after it.
void reset();

} // namespace registry
