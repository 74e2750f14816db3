// SDL has one way in for signals: its own handler for SIGTERM notes down that SDL_QUIT is to be
// made, which the wait looks at when the signal interrupts it. A handler may do almost nothing
// else, so the nudge takes that way too and leaves a flag that tells the two apart.
#include "host/sdl/nudge.h"

#include <csignal>

#include "host/process_lock.h"

namespace desktop {
namespace {

volatile std::sig_atomic_t nudged = 0;
void (*wakeSdl)(int) = nullptr;

extern "C" void handleNudge(int)
{
    nudged = 1;
    wakeSdl(SIGTERM);
}

} // namespace

void listenForNudges()
{
    struct sigaction action
    {
    };
    sigaction(SIGTERM, nullptr, &action);
    if (action.sa_handler == SIG_DFL || action.sa_handler == SIG_IGN) {
        return;
    }
    wakeSdl = action.sa_handler;
    action.sa_handler = handleNudge;
    sigaction(host::nudgeSignal, &action, nullptr);
}

bool takeNudge()
{
    const bool result = nudged != 0;
    nudged = 0;
    return result;
}

} // namespace desktop
