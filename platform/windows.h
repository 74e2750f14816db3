// The handheld's system interface in one include: what programs of this platform are written
// against. The parts are documented in their own headers.
#pragma once

#include "winbase.h"
#include "windef.h"
#include "wingdi.h"
#include "winreg.h"
#include "winuser.h"
