// A signal handler may do almost nothing, but SDL's own handler for SIGTERM makes SDL's wait return
// with SDL_QUIT. So ours calls that one, and sets a flag for each meaning.
#include "host/sdl/requests.h"

#include <csignal>

#include <unistd.h>

#include "host/process_lock.h"

namespace desktop {
namespace {

volatile std::sig_atomic_t closeAsked = 0;
volatile std::sig_atomic_t showAsked = 0;
volatile std::sig_atomic_t woken = 0;
void (*wakeSdl)(int) = nullptr;
struct sigaction action = {};

/// A signal that comes just before SDL begins to wait would not end that wait, so another one
/// follows it after a second, until the request is taken.
void wake()
{
    woken = 1;
    wakeSdl(SIGTERM);
    sigaction(SIGTERM, &action, nullptr); // SDL's handler has installed itself again
    alarm(1);
}

extern "C" void handleSignal(int number)
{
    if (number == host::nudgeSignal) {
        showAsked = 1;
    } else if (number != SIGALRM) {
        closeAsked = 1;
    }
    wake();
}

/// SDL's handler; null when it has none.
void (*handlerOfSdl())(int)
{
    for (const int number : {SIGTERM, SIGINT}) {
        struct sigaction present = {};
        sigaction(number, nullptr, &present);
        if (present.sa_handler != SIG_DFL && present.sa_handler != SIG_IGN) {
            return present.sa_handler;
        }
    }
    return nullptr;
}

} // namespace

void listenForRequests()
{
    wakeSdl = handlerOfSdl();
    if (!wakeSdl) {
        return;
    }
    action.sa_handler = handleSignal;
    sigemptyset(&action.sa_mask);
    for (const int number : {host::nudgeSignal, SIGALRM}) {
        sigaddset(&action.sa_mask, number);
        sigaction(number, &action, nullptr);
    }
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        struct sigaction before = {};
        sigaction(number, nullptr, &before);
        if (before.sa_handler != SIG_IGN) { // as nohup has it
            sigaddset(&action.sa_mask, number);
            sigaction(number, &action, nullptr);
        }
    }
    sigprocmask(SIG_BLOCK, &action.sa_mask, nullptr);
}

RequestsLetIn::RequestsLetIn() { sigprocmask(SIG_UNBLOCK, &action.sa_mask, nullptr); }

RequestsLetIn::~RequestsLetIn() { sigprocmask(SIG_BLOCK, &action.sa_mask, nullptr); }

void requestClose()
{
    closeAsked = 1;
    if (wakeSdl) {
        wake();
    }
}

Requests takeRequests(bool sdlQuits)
{
    const Requests taken{closeAsked != 0 || (sdlQuits && woken == 0), showAsked != 0};
    if (woken != 0) {
        alarm(0);
    }
    closeAsked = 0;
    showAsked = 0;
    woken = 0;
    return taken;
}

} // namespace desktop
