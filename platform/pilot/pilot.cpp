// Sets a run up: the script, the store, the processes.
#include "pilot/pilot.h"

#include <fcntl.h>
#include <unistd.h>

#include "host/files.h"
#include "host/pilot/pilot_host.h"
#include "host/store_file.h"
#include "host/temporary_folder.h"
#include "pilot/player.h"
#include "pilot/run_process.h"
#include "record/recording_host.h"

namespace pilot {
namespace {

/// The first lines of the script, which stay to be read; of a pipe, none.
host::Result<std::string> startOf(int script)
{
    const off_t place = lseek(script, 0, SEEK_CUR);
    if (place < 0) {
        return {};
    }
    std::string start(record::largestSize, '\0');
    const ssize_t count = pread(script, start.data(), start.size(), place);
    if (count < 0) {
        return {{}, host::fileProblem("the script")};
    }
    start.resize(static_cast<std::size_t>(count));
    return {start, {}};
}

/// The store that the script says, or that lies beside one of the first records.
host::Problem placeStore(const record::Beginning &beginning, const std::string &script,
                         const std::filesystem::path &folder)
{
    if (beginning.store) {
        return host::StoreFile(folder).save(*beginning.store);
    }
    std::error_code ignored; // a script need not have one
    std::filesystem::copy_file(script + ".reg", folder / "registry.reg", ignored);
    return std::nullopt;
}

} // namespace

int run(const Options &options, const handheld::Program &program, const Subject &subject)
{
    const int script =
        options.script == "-" ? STDIN_FILENO : open(options.script.c_str(), O_RDONLY | O_CLOEXEC);
    if (script < 0) {
        return complain(host::fileProblem(options.script));
    }
    std::optional<host::TemporaryFolder> temporary;
    const auto store = options.store ? *options.store : temporary.emplace("glimra-pilot").path();
    const auto unmade = temporary ? temporary->problem() : host::StoreFile(store).makeFolder();
    if (unmade) {
        return complain(*unmade);
    }
    const auto [start, unread] = startOf(script);
    if (unread) {
        return complain(*unread);
    }
    std::string_view rest = start;
    int lines = 0;
    const auto [beginning, mistake] = record::takeBeginning(rest, lines);
    if (mistake) {
        return complain(*mistake, 2);
    }
    const auto unplaced =
        options.store ? std::nullopt : placeStore(beginning, options.script, store);
    if (unplaced) {
        return complain(*unplaced);
    }
    RunState first;
    first.clock = options.clock.value_or(beginning.clock);
    first.orientation = options.landscape || beginning.landscape ? 1 : 0;
    return runUntilFinished(first, [&](RunState &state, Outcome &outcome) {
        play(script, state, outcome, store, subject, [&](host::Host &host) {
            record::RecordingHost recorder(host);
            if (!options.record || state.line != 0) {
                return handheld::run(host, program, state.orientation);
            }
            const auto [file, problem] = host::makeFile(*options.record);
            if (problem) {
                outcome.finish(complain(*problem));
            }
            recorder.begin(options.version, state.orientation != 0, subject, file);
            outcome.setAtEnd([&recorder] { recorder.catchUp(); });
            const int exitCode = handheld::run(recorder, program, state.orientation);
            outcome.setAtEnd({});
            recorder.close();
            return exitCode;
        });
    });
}

} // namespace pilot
