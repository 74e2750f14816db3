// The program and its window run in a child process. When the viewer goes back, a fresh child
// begins at the start of the record and runs up to there, unseen; the one before is ended when the
// fresh one has its window on the screen. Children keep the place of the window for the next one in
// a folder of their own.
#include "launch/watch.h"

#include <cinttypes>
#include <csignal>
#include <cstdio>
#include <cstdlib>

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

/// What asks this process to end asks the child, whose end is also this one's.
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

    /// Follows them to the end; returns the last one's exit status.
    int follow()
    {
        begin({});
        for (;;) {
            const std::string line = host::readLine(words_.number(), "a pipe").value.value_or("");
            end(former_);
            View next;
            int playing = 0;
            if (std::sscanf(line.c_str(), "view %" SCNu64 " %d %d", &next.position,
                            &next.quarterSpeed, &playing) == 3)
            {
                next.playing = playing != 0;
                former_ = present_;
                begin(next);
            } else if (line != "shown") {
                int status = 0;
                waitpid(present_, &status, 0);
                return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
            }
        }
    }

private:
    void begin(const View &view)
    {
        int ends[2];
        if (pipe(ends) != 0) {
            std::exit(1);
        }
        words_ = host::Descriptor(ends[0]);
        const host::Descriptor input(ends[1]);
        present_ = fork();
        presentChild = present_;
        if (present_ == 0) {
            handleEnd(SIG_DFL);
            words_.close();
            prctl(PR_SET_PDEATHSIG, SIGTERM);
            std::exit(show(viewing_, view, input));
        }
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

int watch(const record::Record &record, std::optional<int> scale, const handheld::Program &program)
{
    const host::TemporaryFolder folder("glimra-watch");
    handleEnd(passOn);
    return Children({record, scale, program, folder.path()}).follow();
}
