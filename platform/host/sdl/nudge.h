// Being nudged by another process that found this one running: wakes the process from SDL's wait.
#pragma once

namespace desktop {

/// Prepares for nudges; SDL's video must have been initialised.
void listenForNudges();
/// Whether a nudge has come since the last call. The wake-up itself arrives as SDL_QUIT, so whoever
/// gets one asks here first.
bool takeNudge();

} // namespace desktop
