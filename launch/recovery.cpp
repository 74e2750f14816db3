// The program runs in a process of its own, because it can run only once in each.
#include "launch/recovery.h"

#include <algorithm>
#include <cstdlib>

#include <csignal>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "host/descriptor.h"
#include "host/store_file.h"
#include "launch/game_subject.h"
#include "record/playback.h"
#include "record/read_file.h"

namespace {

using Store = record::Playback::Store;

/// How long the child may play, in seconds. A session of a day takes a few.
constexpr unsigned longestPlay = 20;

enum Outcome : char
{
    recovered = 'r', ///< and the store follows
    different = 'd', ///< and where follows
    unknown = 'u',   ///< the record does not lead to the present store
};

/// Plays in the child. Returns an outcome with what follows it.
std::string play(const record::Record &record, const Store &present,
                 const handheld::Program &program)
{
    GameLog games;
    record::Playback playback(record, gameSubject(games));
    handheld::run(playback, program, record.beginning.landscape ? 1 : 0);
    if (playback.difference()) {
        return static_cast<char>(different) + *playback.difference();
    }
    const auto &ends = playback.storesAtEnd();
    const bool known = std::find(ends.begin(), ends.end(), present) != ends.end() ||
                       present == playback.store(); // recovered, but not finished
    if (!playback.store() || !known) {
        return {static_cast<char>(unknown)};
    }
    const auto &bytes = *playback.store();
    return static_cast<char>(recovered) +
           std::string(reinterpret_cast<const char *>(bytes.data()), bytes.size());
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

/// What the child returned; empty when it did not get to its end.
host::Result<std::string> playInChild(const record::Record &record, const Store &present,
                                      const handheld::Program &program)
{
    int ends[2];
    if (pipe(ends) != 0) {
        return {{}, host::fileProblem("a pipe")};
    }
    const host::Descriptor output(ends[0]);
    host::Descriptor input(ends[1]);
    const pid_t child = fork();
    if (child < 0) {
        return {{}, host::fileProblem("a process")};
    }
    if (child == 0) {
        limitChild();
        const std::string outcome = play(record, present, program);
        _exit(input.writeAll(std::as_bytes(std::span(outcome))) ? 0 : errno);
    }
    input.close();
    const auto outcome = output.readAll();
    const int unread = outcome ? 0 : errno;
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    const int error = unread == 0 && WIFEXITED(status) ? WEXITSTATUS(status) : unread;
    if (error != 0) {
        return {{}, host::fileProblem("a pipe", error)};
    }
    return {WIFEXITED(status) ? *outcome : "", {}};
}

struct Recovery
{
    Store store; ///< none: why not follows
    std::string reason;
    bool finished = true; ///< another try would come to the same
};

Recovery recoverFrom(const std::filesystem::path &file, const Store &present,
                     const handheld::Program &program)
{
    const auto [record, problem] = record::readFile(file, true);
    if (problem) {
        return {{}, *problem};
    }
    const auto [outcome, failure] = playInChild(record, present, program);
    if (failure) {
        return {{}, *failure, false};
    }
    if (outcome.empty()) {
        return {{}, file.string() + ": does not play to its end"};
    }
    if (outcome[0] != recovered) {
        return {{},
                file.string() + ": " +
                    (outcome[0] == different ? outcome.substr(1) : "leads to another store")};
    }
    const auto bytes = std::as_bytes(std::span(outcome).subspan(1));
    return {Store(std::in_place, bytes.begin(), bytes.end()), {}};
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
        const Recovery recovery = recoverFrom(*record, present, program);
        if (recovery.store) {
            problem.reset();
            finished = recovery.store == present || host.saveStore(*recovery.store);
            break;
        }
        problem = problem ? problem : recovery.reason;
        finished = finished && recovery.finished;
    }
    if (problem) {
        host.report("the game goes on from where it was stored last, not from where it ended: " +
                    *problem);
    }
    for (const auto &record : unfinished) {
        const auto failure = finished ? SessionRecords::finish(record) : std::nullopt;
        if (failure) {
            host.report("the record is not finished: " + *failure);
        }
    }
}
