// Sound output as a part of the handheld.
#pragma once

namespace wave {

/// Back to the state at switch-on: silence, the device closed, nothing queued.
void reset();

} // namespace wave
