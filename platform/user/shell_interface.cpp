// Keeps the shell in use.
#include "user/shell_interface.h"

namespace user {

namespace {

ShellInterface *inUse = nullptr;

} // namespace

ShellInterface &shellInUse() { return *inUse; }

void setShell(ShellInterface &shell) { inUse = &shell; }

} // namespace user
