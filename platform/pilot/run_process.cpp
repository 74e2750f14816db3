// Each process writes its outcome to a pipe: "finish STATUS", or "restart" and the packed state.
#include "pilot/run_process.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sstream>

#include <csignal>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "host/pilot/pilot_host.h"
#include "host/problem.h"

namespace pilot {
namespace {

/// What a process left behind.
struct Remains
{
    std::string outcome; ///< empty after a crash
    int status = 0;      ///< as waitpid gives it
};

/// The signal that ended the pilot from outside; 0: none.
volatile std::sig_atomic_t endedBy = 0;
/// The process in which the program runs; 0: none.
volatile std::sig_atomic_t running = 0;

void endRun(int signal)
{
    endedBy = signal;
    if (running != 0) {
        kill(running, SIGKILL);
    }
}

/// Sets what signals from outside do; not those that are ignored.
void handleEnd(void (*act)(int))
{
    for (const int signal : {SIGHUP, SIGINT, SIGTERM}) {
        if (std::signal(signal, act) == SIG_IGN) {
            std::signal(signal, SIG_IGN);
        }
    }
}

/// Runs the program in a child process and waits for its end.
host::Result<Remains> runOnce(RunState &state,
                              const std::function<void(RunState &, Outcome &)> &run)
{
    int ends[2];
    if (pipe(ends) != 0) {
        return {{}, host::fileProblem("a pipe")};
    }
    host::Descriptor output(ends[0]);
    host::Descriptor input(ends[1]);
    const pid_t process = fork();
    if (process < 0) {
        return {{}, host::fileProblem("a process")};
    }
    if (process == 0) {
        handleEnd(SIG_DFL);
        output.close();
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        Outcome outcome(std::move(input));
        run(state, outcome);
        std::abort();
    }
    running = process;
    if (endedBy != 0) {
        endRun(endedBy);
    }
    input.close();
    const auto outcome = output.readAll();
    const auto problem = outcome ? std::nullopt : host::Problem(host::fileProblem("a pipe"));
    if (problem) {
        kill(process, SIGKILL);
    }
    running = 0; // it is ending: its number may soon be another's
    int status = 0;
    host::uninterrupted([&] { return waitpid(process, &status, 0); });
    return {{outcome.value_or(""), status}, problem};
}

} // namespace

void Outcome::restart(const RunState &state, bool cleanly) const
{
    report("restart " + pack(state), cleanly);
}

void Outcome::finish(int status, bool cleanly) const
{
    report("finish " + std::to_string(status), cleanly);
}

void Outcome::report(const std::string &text, bool cleanly) const
{
    if (atEnd_) {
        atEnd_();
    }
    std::fflush(nullptr);
    if (!pipe_.writeAll(std::as_bytes(std::span(text)))) {
        std::_Exit(complain(host::fileProblem("a pipe")));
    }
    cleanly ? std::exit(0) : std::_Exit(0);
}

int runUntilFinished(RunState state, const std::function<void(RunState &, Outcome &)> &run)
{
    handleEnd(endRun);
    for (;;) {
        const auto [remains, problem] = runOnce(state, run);
        if (endedBy != 0) {
            return endedStatus + endedBy;
        }
        if (problem) {
            return complain(*problem);
        }
        const auto &[outcome, status] = remains;
        std::istringstream words(outcome);
        std::string word;
        words >> word;
        if (WIFSIGNALED(status) || WEXITSTATUS(status) != 0 || word.empty()) {
            const std::string cause = WIFSIGNALED(status)
                                          ? strsignal(WTERMSIG(status))
                                          : "exit status " + std::to_string(WEXITSTATUS(status));
            return complain("the program crashed: " + cause, crashStatus);
        }
        if (word == "finish") {
            int result = 0;
            words >> result;
            return result;
        }
        state = unpack(outcome.substr(word.size()));
    }
}

} // namespace pilot
