// A signal handler may do almost nothing, but SDL's own handler for SIGTERM makes SDL's wait return
// with SDL_QUIT. So the nudge calls that handler, and sets a flag that distinguishes the two.
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
