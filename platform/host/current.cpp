// Keeps the host in use, and gives programs its clock.
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
