// The web host: the handheld in a browser page.
#pragma once

#include <memory>

#include "host/host.h"

namespace web {

/// The one page there is. When the host goes, the page learns that the program has ended.
std::unique_ptr<host::Host> open();

} // namespace web
