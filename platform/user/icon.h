// Icons of the program.
#pragma once

#include "host/host.h"
#include "winuser.h"

namespace user {

/// The largest picture of an icon, for the host; without pixels when there is no such icon.
host::Icon iconPicture(HICON icon);

} // namespace user
