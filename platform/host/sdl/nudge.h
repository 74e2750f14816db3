// A nudge: another process that found this one running asks it to show its window. It ends SDL's
// wait.
#pragma once

namespace desktop {

/// Prepares for nudges; SDL's video must have been initialised.
void listenForNudges();
/// Whether a nudge has come since the last call. It arrives as SDL_QUIT, so ask here at each of
/// those.
bool takeNudge();

} // namespace desktop
