// Switches the parts of the handheld on and off around a program.
#include "handheld.h"

#include "gdi/screen.h"
#include "registry/registry.h"
#include "shell/shell.h"
#include "user/display.h"
#include "user/manager.h"
#include "wave/wave.h"
#include "winuser.h"

namespace handheld {

namespace {

host::Host *currentHost = nullptr;
std::span<const std::byte> currentResources;

} // namespace

void switchOn(host::Host &host, std::span<const std::byte> resources, int orientation)
{
    currentHost = &host;
    currentResources = resources;
    gdi::reset();
    user::setOrientation(orientation);
    shell::switchOn();
}

void switchOff()
{
    user::reset();
    wave::reset();
    registry::reset();
    gdi::reset();
    currentResources = {};
    currentHost = nullptr;
}

int run(host::Host &host, const Program &program, int orientation)
{
    constexpr HINSTANCE instance{1};
    switchOn(host, program.resources, orientation);
    WCHAR commandLine[] = u"";
    const int exitCode = program.entry(instance, {}, commandLine, SW_SHOWNORMAL);
    switchOff();
    return exitCode;
}

host::Host &host() { return *currentHost; }

std::span<const std::byte> resources() { return currentResources; }

} // namespace handheld

DWORD GetTickCount() { return handheld::host().ticks(); }
