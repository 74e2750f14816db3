// One process for each life; what it leaves comes through a pipe: "finish STATUS", or "restart"
// and the world.
#include "pilot/lives.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <system_error>

#include <csignal>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace pilot {
namespace {

std::string readAll(int descriptor)
{
    std::string text;
    char block[4096];
    ssize_t count = 0;
    while ((count = read(descriptor, block, sizeof block)) > 0 || (count < 0 && errno == EINTR)) {
        text.append(block, static_cast<std::size_t>(count < 0 ? 0 : count));
    }
    return text;
}

int waitFor(pid_t process)
{
    int status = 0;
    while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
    }
    return status;
}

[[noreturn]] void throwErrno(const char *what)
{
    throw std::system_error(errno, std::generic_category(), what);
}

/// What a process left behind at its end.
struct Left
{
    std::string will;
    int status = 0; ///< as waitpid tells it
};

/// The signal that ended the run from outside; 0: none.
volatile std::sig_atomic_t endedBy = 0;
/// The process that lives; 0: none.
volatile std::sig_atomic_t living = 0;

void endRun(int signal)
{
    endedBy = signal;
    if (living != 0) {
        kill(living, SIGKILL);
    }
}

/// What is to be done when the run is ended from outside; not with signals that are ignored.
void whenEnded(void (*act)(int))
{
    for (const int signal : {SIGHUP, SIGINT, SIGTERM}) {
        if (std::signal(signal, act) == SIG_IGN) {
            std::signal(signal, SIG_IGN);
        }
    }
}

/// Forks a process that lives, and waits for its end.
Left leftBy(World &world, const std::function<void(World &, const Will &)> &live)
{
    int ends[2];
    if (pipe(ends) != 0) {
        throwErrno("pipe");
    }
    const pid_t process = fork();
    if (process < 0) {
        throwErrno("fork");
    }
    if (process == 0) {
        whenEnded(SIG_DFL);
        close(ends[0]);
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        live(world, Will(ends[1]));
        std::abort();
    }
    living = process;
    if (endedBy != 0) {
        endRun(endedBy);
    }
    close(ends[1]);
    Left left;
    left.will = readAll(ends[0]);
    close(ends[0]);
    living = 0; // it is ending: its number may soon be another's
    left.status = waitFor(process);
    return left;
}

void tellCrash(int status)
{
    if (WIFSIGNALED(status)) {
        std::fprintf(stderr, "pilot: the program crashed: %s\n", strsignal(WTERMSIG(status)));
    } else {
        std::fprintf(stderr, "pilot: the program crashed: exit status %d\n", WEXITSTATUS(status));
    }
}

} // namespace

void Will::leave(const std::string &text) const
{
    std::fflush(nullptr);
    for (std::size_t done = 0; done < text.size();) {
        const ssize_t count = write(pipe_, text.data() + done, text.size() - done);
        if (count < 0 && errno != EINTR) {
            std::abort();
        }
        done += static_cast<std::size_t>(count < 0 ? 0 : count);
    }
}

void Will::restart(const World &world, bool inOrder) const
{
    leave("restart " + pack(world));
    inOrder ? std::exit(0) : std::_Exit(0);
}

void Will::finish(int status) const
{
    leave("finish " + std::to_string(status));
    std::_Exit(0);
}

void Will::finishInOrder(int status) const
{
    leave("finish " + std::to_string(status));
    std::exit(0);
}

int runLives(World world, const std::function<void(World &, const Will &)> &live)
{
    whenEnded(endRun);
    for (;;) {
        const Left left = leftBy(world, live);
        if (endedBy != 0) {
            return endedStatus + endedBy;
        }
        std::istringstream words(left.will);
        std::string word;
        words >> word;
        if (WIFSIGNALED(left.status) || WEXITSTATUS(left.status) != 0 || word.empty()) {
            tellCrash(left.status);
            return crashStatus;
        }
        if (word == "finish") {
            int result = 0;
            words >> result;
            return result;
        }
        world = unpack(left.will.substr(word.size()));
    }
}

} // namespace pilot
