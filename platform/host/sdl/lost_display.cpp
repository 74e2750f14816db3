// The library of X11 is loaded by SDL, so its functions are looked up. Other displays report
// their end to SDL.
#include "host/sdl/lost_display.h"

#include <csetjmp>
#include <cstdlib>
#include <utility>

#include <SDL_syswm.h>

#include "host/sdl/requests.h"

namespace desktop {
namespace {

bool lost = false;
bool needed = true;
std::jmp_buf wayOut;
bool canLeave = false; ///< by wayOut

#ifdef SDL_VIDEO_DRIVER_X11

/// In the place of a complaint on the terminal.
extern "C" int noteLoss(Display *)
{
    lost = true;
    return 0;
}

/// In the place of exit(). Where there is no way out, the library goes on, and whatever it is asked
/// fails. Its functions and SDL's are C, and leave nothing behind that is used again.
extern "C" void closeInstead(Display *, void *)
{
    if (!needed) {
        std::_Exit(EXIT_SUCCESS);
    }
    requestClose();
    if (std::exchange(canLeave, false)) {
        std::longjmp(wayOut, 1);
    }
}

void listenToX11(Display *display)
{
    void *library = SDL_LoadObject("libX11.so.6");
    if (!library) {
        return;
    }
    const auto setHandler = reinterpret_cast<decltype(&XSetIOErrorHandler)>(
        SDL_LoadFunction(library, "XSetIOErrorHandler"));
    const auto setExitHandler = reinterpret_cast<decltype(&XSetIOErrorExitHandler)>(
        SDL_LoadFunction(library, "XSetIOErrorExitHandler"));
    if (setHandler && setExitHandler) {
        setHandler(noteLoss);
        setExitHandler(display, closeInstead, nullptr);
    }
}

#endif

} // namespace

void listenForLostDisplay(SDL_Window *window)
{
#ifdef SDL_VIDEO_DRIVER_X11
    SDL_SysWMinfo info;
    SDL_VERSION(&info.version);
    if (SDL_GetWindowWMInfo(window, &info) != 0 && info.subsystem == SDL_SYSWM_X11) {
        listenToX11(info.info.x11.display);
    }
#endif
}

bool displayIsLost() { return lost; }

void withDisplay(const std::function<void()> &call)
{
    if (!lost && setjmp(wayOut) == 0) {
        canLeave = true;
        call();
    }
    canLeave = false;
}

void needDisplayNoMore() { needed = false; }

} // namespace desktop
