// The handheld as a whole: switched on with a host below and a program above.
#pragma once

#include <cstddef>
#include <span>

#include "winbase.h"

#include "host/host.h"

namespace handheld {

/// A program as it is installed on the handheld: its entry point and its linked resources, the
/// bytes of a .res file.
struct Program
{
    int (*entry)(HINSTANCE instance, HINSTANCE previous, LPWSTR commandLine, int showCommand);
    std::span<const std::byte> resources;
};

/// Switches the handheld on, its display in `orientation` (0, 1, 2 or 4), runs the program to
/// its end, and returns its exit code. One program a process.
int run(host::Host &host, const Program &program, int orientation);

/// The two halves of `run` around the entry point, for tests, which call the system without a
/// program. Switching off leaves nothing behind.
void switchOn(host::Host &host, std::span<const std::byte> resources, int orientation);
void switchOff();

} // namespace handheld
