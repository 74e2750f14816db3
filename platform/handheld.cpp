// Switches the parts of the handheld on and off around a program.
#include "handheld.h"

#include "gdi/objects.h"
#include "host/current.h"
#include "registry/registry.h"
#include "resources/image.h"
#include "shell/shell.h"
#include "user/classes.h"
#include "user/display.h"
#include "user/focus.h"
#include "user/input.h"
#include "user/keys.h"
#include "user/menu.h"
#include "user/message.h"
#include "user/program_window.h"
#include "user/stylus.h"
#include "user/table.h"
#include "user/timer.h"
#include "wave/wave.h"

namespace handheld {

void switchOn(host::Host &host, std::span<const std::byte> resources, int orientation)
{
    host::setCurrent(&host);
    resources::setImage(resources);
    gdi::reset();
    user::setOrientation(orientation);
    shell::switchOn();
}

void switchOff()
{
    user::forgetWindows();
    user::forgetProgramWindow();
    user::forgetClasses();
    user::forgetMessages();
    user::forgetTimers();
    user::forgetFocus();
    user::forgetKeys();
    user::forgetStylus();
    user::forgetMenus();
    wave::reset();
    registry::reset();
    gdi::reset();
    resources::setImage({});
    host::setCurrent(nullptr);
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

} // namespace handheld
