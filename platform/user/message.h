// The queue of posted messages.
#pragma once

#include "winuser.h"

namespace user {

/// Drops what is posted to a window and not taken yet.
void dropMessagesOf(HWND window);
/// PostQuitMessage was called, and WM_QUIT is still to be taken.
bool quitPosted();
void forgetMessages();

} // namespace user
