// The state of the keys, for messages and for polling. A press is remembered until it is polled, so
// that one between two polls is not lost.
#pragma once

#include <cstdint>

namespace user {

/// What a key event does to the state.
struct KeyChange
{
    bool counts = false;   ///< the program is to get a message
    bool repeated = false; ///< the key was down already
};

/// Notes that a key went down or up. Neither an application button that the program does not hold
/// nor the release of a key that was not pressed here counts.
KeyChange noteKey(std::uint16_t key, bool down);
/// The Ctrl and Shift keys as they were in the last event of the host.
void noteModifiers(bool control, bool shift);
bool controlDown();
bool shiftDown();
/// Every key counts as up and not pressed.
void releaseAllKeys();
void forgetKeys();

} // namespace user
