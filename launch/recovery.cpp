// The program runs in a process of its own, because it can run only once in each.
#include "launch/recovery.h"

#include <algorithm>
#include <cstdlib>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

#include "host/descriptor.h"
#include "launch/game_subject.h"
#include "record/playback.h"
#include "record/read_file.h"

namespace {

using Store = record::Playback::Store;

/// How long the child may play, in seconds. A session of a day takes a few.
constexpr unsigned longestPlay = 20;

enum Outcome : unsigned char
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
    if (!playback.store() || std::find(ends.begin(), ends.end(), present) == ends.end()) {
        return {static_cast<char>(unknown)};
    }
    const auto &bytes = *playback.store();
    return static_cast<char>(recovered) +
           std::string(reinterpret_cast<const char *>(bytes.data()), bytes.size());
}

/// What the child returned; empty when it did not get to its end.
std::string playInChild(const record::Record &record, const Store &present,
                        const handheld::Program &program)
{
    int ends[2];
    if (pipe(ends) != 0) {
        return {};
    }
    const host::Descriptor output(ends[0]);
    host::Descriptor input(ends[1]);
    const pid_t child = fork();
    if (child == 0) {
        alarm(longestPlay);
        const std::string outcome = play(record, present, program);
        _exit(input.writeAll(std::as_bytes(std::span(outcome))) ? 0 : 1);
    }
    input.close();
    const std::string outcome = child < 0 ? std::string() : output.readAll().value_or("");
    int status = 0;
    while (child > 0 && waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return status == 0 ? outcome : std::string();
}

} // namespace

void recover(host::Host &host, const std::filesystem::path &file, const handheld::Program &program)
{
    const auto [record, problem] = record::readFile(file, true);
    const std::string outcome =
        problem ? std::string() : playInChild(record, host.loadStore(), program);
    if (!outcome.empty() && outcome[0] == recovered) {
        host.saveStore(std::as_bytes(std::span(outcome).subspan(1)));
        return;
    }
    const std::string reason = problem           ? *problem
                               : outcome.empty() ? file.string() + ": does not play to its end"
                               : outcome[0] == different
                                   ? file.string() + ": " + outcome.substr(1)
                                   : file.string() + ": leads to another store";
    host.report("the game goes on from where it was stored last, not from where it ended: " +
                reason);
}
