// The host in use. One process has one handheld, and that one host.
#pragma once

#include "host/host.h"

namespace host {

/// The host that the handheld was switched on with; only while it is on.
Host &current();
/// Called when the handheld is switched on, and with nullptr when it is switched off.
void setCurrent(Host *host);

} // namespace host
