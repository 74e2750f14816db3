// The queue of posted messages.
#pragma once

#include "winuser.h"

namespace user {

/// Drops what is posted to a window and not taken yet.
void dropMessagesOf(HWND window);
void forgetMessages();

} // namespace user
