// The program runs in a process of its own, because it can run only once in each.
#include "launch/recovery.h"

#include <cstdlib>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

#include "host/descriptor.h"
#include "launch/record_end.h"
#include "record/read_file.h"

namespace {

using Store = record::Playback::Store;
using End = host::Result<std::string>;

/// How long the child may play, in seconds. A session of a day takes a few.
constexpr unsigned longestPlay = 20;

constexpr char stored = 's';    ///< before the store
constexpr char different = 'd'; ///< before the problem

/// Plays in the child. Returns one of these marks with what follows it.
std::string play(const record::Record &record, const Store &present,
                 const handheld::Program &program)
{
    const End end = playToEnd(record, present, program);
    return end.problem ? different + *end.problem : stored + end.value;
}

End playInChild(const record::Record &record, const Store &present,
                const handheld::Program &program)
{
    int ends[2];
    if (pipe(ends) != 0) {
        return {{}, "does not play"};
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
    if (status != 0 || outcome.empty()) {
        return {{}, "does not play to its end"};
    }
    const std::string rest = outcome.substr(1);
    return outcome[0] == stored ? End{rest, {}} : End{{}, rest};
}

} // namespace

void recover(host::Host &host, const std::filesystem::path &file, const handheld::Program &program)
{
    const auto [record, problem] = record::readFile(file, true);
    if (problem) {
        keepEnd(host, {{}, problem});
        return;
    }
    End end = playInChild(record, host.loadStore(), program);
    if (end.problem) {
        end.problem = file.string() + ": " + *end.problem;
    }
    keepEnd(host, end);
}
