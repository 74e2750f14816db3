// Keeps the host in use, whose clock is the program's.
#include "host/current.h"

#include "winbase.h"

namespace host {

namespace {

Host *inUse = nullptr;

} // namespace

Host &current() { return *inUse; }

void setCurrent(Host *host) { inUse = host; }

} // namespace host

DWORD GetTickCount() { return host::current().ticks(); }
