// The program and its window run in a child process. When the viewer goes back, a fresh child
// begins at the start of the record and runs up to there, unseen; the one before is ended when the
// fresh one has its window on the screen. Children keep the place of the window for the next one in
// a folder of their own.
#include "launch/watch.h"

#include <cinttypes>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "app/situation.h"
#include "host/descriptor.h"
#include "host/sdl/desktop.h"
#include "host/temporary_folder.h"
#include "launch/game_subject.h"
#include "record/watching_host.h"

namespace {

using View = record::WatchingHost::View;

struct Viewing
{
    const record::Record &record;
    std::optional<int> scale;
    const handheld::Program &program;
    const std::filesystem::path &folder;
};

volatile std::sig_atomic_t presentChild = 0;

/// What asks this process to end asks the child, whose end is also this one's. To be called only
/// when there is one: a number below 1 stands for many processes.
void passOn(int) { kill(presentChild, SIGTERM); }

void handleEnd(void (*act)(int))
{
    for (const int signal : {SIGHUP, SIGINT, SIGTERM}) {
        std::signal(signal, act);
    }
}

/// A child's words for its parent, a line each: "shown", and "view" with where another is to begin.
void say(const host::Descriptor &parent, const std::string &line)
{
    if (!parent.writeAll(std::as_bytes(std::span(line)))) {
        _exit(1);
    }
}

/// What a child does. Returns its exit status.
int show(const Viewing &viewing, const View &view, const host::Descriptor &parent)
{
    const bool landscape = viewing.record.beginning.landscape;
    const auto window =
        desktop::open({.storeFolder = viewing.folder,
                       .scale = viewing.scale,
                       .landscape = landscape,
                       .needsScreen = [] { return situationOf(gameApp).stage == Stage::Playing; }});
    if (!window) {
        return 1;
    }
    GameLog games;
    record::WatchingHost host(viewing.record, gameSubject(games), *window, view,
                              {[&](const View &next) {
                                   window->keepPlace();
                                   say(parent, "view " + std::to_string(next.position) + ' ' +
                                                   std::to_string(next.quarterSpeed) +
                                                   (next.playing ? " 1\n" : " 0\n"));
                               },
                               [&] { say(parent, "shown\n"); }});
    handheld::run(host, viewing.program, landscape ? 1 : 0);
    return 0;
}

/// The present child, and the one before until the present one is shown.
class Children
{
public:
    explicit Children(const Viewing &viewing) : viewing_(viewing) {}

    /// Follows them to the end.
    host::Problem follow()
    {
        auto problem = begin({});
        while (!problem) {
            const std::string line = host::readLine(words_.number(), "a pipe").value.value_or("");
            end(former_);
            View next;
            int playing = 0;
            if (std::sscanf(line.c_str(), "view %" SCNu64 " %d %d", &next.position,
                            &next.quarterSpeed, &playing) == 3)
            {
                next.playing = playing != 0;
                former_ = present_;
                problem = begin(next);
            } else if (line != "shown") {
                return reap();
            }
        }
        end(former_);
        return problem;
    }

private:
    host::Problem begin(const View &view)
    {
        int ends[2];
        if (pipe(ends) != 0) {
            return host::fileProblem("a pipe");
        }
        words_ = host::Descriptor(ends[0]);
        const host::Descriptor input(ends[1]);
        const pid_t child = fork();
        if (child < 0) {
            return host::fileProblem("a process");
        }
        if (child == 0) {
            handleEnd(SIG_DFL);
            words_.close();
            prctl(PR_SET_PDEATHSIG, SIGTERM);
            std::exit(show(viewing_, view, input));
        }
        presentChild = present_ = child;
        handleEnd(passOn);
        return std::nullopt;
    }

    /// The present child has ended, or is about to.
    host::Problem reap()
    {
        int status = 0;
        host::uninterrupted([&] { return waitpid(present_, &status, 0); });
        if (WIFSIGNALED(status)) {
            return std::string("the program crashed: ") + strsignal(WTERMSIG(status));
        }
        return status == 0 ? std::nullopt
                           : host::Problem("there is no display to open a window on");
    }

    static void end(pid_t &child)
    {
        if (child > 0) {
            kill(child, SIGKILL);
            waitpid(child, nullptr, 0);
            child = 0;
        }
    }

    const Viewing viewing_;
    host::Descriptor words_; ///< of the present child
    pid_t present_ = 0;
    pid_t former_ = 0;
};

} // namespace

host::Problem watch(const record::Record &record, std::optional<int> scale,
                    const handheld::Program &program)
{
    const host::TemporaryFolder folder("glimra-watch");
    return Children({record, scale, program, folder.path()}).follow();
}
