// The program runs in a process of its own, because it can run only once in each.
#include "launch/recovery.h"

#include <csignal>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "host/descriptor.h"
#include "host/store_file.h"
#include "launch/record_end.h"
#include "record/read_file.h"

namespace {

using record::Playback;

/// How long the child may play, in seconds. A session of a day takes a few.
constexpr unsigned longestPlay = 20;

/// What the child's words begin with.
constexpr char stored = 's';    ///< and the store follows
constexpr char different = 'd'; ///< and the problem follows

struct Outcome
{
    host::Result<std::string> end;
    bool finished = true; ///< another try would come to the same
};

Outcome failure(const char *what, int error = errno)
{
    return {{{}, host::fileProblem(what, error)}, false};
}

/// The child ends with its parent, or when it takes too long: the signal for that is blocked here.
void limitChild()
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    std::signal(SIGALRM, SIG_DFL);
    sigset_t limit;
    sigemptyset(&limit);
    sigaddset(&limit, SIGALRM);
    sigprocmask(SIG_UNBLOCK, &limit, nullptr);
    alarm(longestPlay);
}

[[noreturn]] void playAsChild(const record::Record &record, const Playback::Store &present,
                              const handheld::Program &program, const host::Descriptor &parent)
{
    limitChild();
    const auto [store, problem] = playToEnd(record, present, program);
    const std::string words = problem ? different + *problem : stored + store;
    _exit(parent.writeAll(std::as_bytes(std::span(words))) ? 0 : errno);
}

Outcome playInChild(const record::Record &record, const Playback::Store &present,
                    const handheld::Program &program)
{
    int ends[2];
    if (pipe(ends) != 0) {
        return failure("a pipe");
    }
    const host::Descriptor output(ends[0]);
    host::Descriptor input(ends[1]);
    const pid_t child = fork();
    if (child < 0) {
        return failure("a process");
    }
    if (child == 0) {
        playAsChild(record, present, program, input);
    }
    input.close();
    const auto words = output.readAll();
    const int unread = words ? 0 : errno;
    int status = 0;
    host::uninterrupted([&] { return waitpid(child, &status, 0); });
    const int error = unread == 0 && WIFEXITED(status) ? WEXITSTATUS(status) : unread;
    if (error != 0) {
        return failure("a pipe", error);
    }
    if (!WIFEXITED(status) || words->empty()) {
        return {{{}, "does not play to its end"}};
    }
    const std::string rest = words->substr(1);
    return words->front() == stored ? Outcome{{rest, {}}} : Outcome{{{}, rest}};
}

Outcome recoverFrom(const std::filesystem::path &file, const Playback::Store &present,
                    const handheld::Program &program)
{
    const auto [record, problem] = record::readFile(file, true);
    if (problem) {
        return {{{}, problem}};
    }
    Outcome outcome = playInChild(record, present, program);
    if (outcome.end.problem) {
        outcome.end.problem = file.string() + ": " + *outcome.end.problem;
    }
    return outcome;
}

} // namespace

void recover(host::Host &host, const std::filesystem::path &storeFolder,
             const SessionRecords &records, const handheld::Program &program)
{
    const auto [unfinished, unknown] = records.unfinished();
    const auto [present, unreadable] = host::StoreFile(storeFolder).load();
    host::Problem problem = unreadable ? unreadable : unknown;
    bool finished = !problem;
    for (auto record = unfinished.begin(); !unreadable && record != unfinished.end(); ++record) {
        const auto [end, isFinal] = recoverFrom(*record, present, program);
        if (!end.problem) {
            problem.reset();
            finished = keepEnd(host, end);
            break;
        }
        problem = problem ? problem : end.problem;
        finished = finished && isFinal;
    }
    if (problem) {
        keepEnd(host, {{}, problem});
    }
    for (const auto &record : unfinished) {
        if (const auto failure = finished ? SessionRecords::finish(record) : std::nullopt) {
            host.report("the record is not finished: " + *failure);
        }
    }
}
