// Sets a run up: the script, the store, the processes.
#include "pilot/pilot.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include <fcntl.h>
#include <unistd.h>

#include "host/files.h"
#include "host/store_file.h"
#include "pilot/player.h"
#include "pilot/run_process.h"
#include "record/recording_host.h"

namespace pilot {
namespace {

/// The folder of the store; a temporary one is removed at the end.
class StoreFolder
{
public:
    StoreFolder() = default;
    StoreFolder(const StoreFolder &) = delete;
    StoreFolder &operator=(const StoreFolder &) = delete;
    ~StoreFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(temporary_, ignored);
    }

    /// Makes the folder; none: a temporary one.
    host::Problem make(const std::optional<std::filesystem::path> &folder)
    {
        if (folder) {
            path_ = *folder;
            return host::StoreFile(path_).makeFolder();
        }
        std::string name = std::filesystem::temp_directory_path() / "glimra-pilot-XXXXXX";
        if (!mkdtemp(name.data())) {
            return host::fileProblem(name);
        }
        path_ = temporary_ = name;
        return std::nullopt;
    }

    const std::filesystem::path &path() const { return path_; }

private:
    std::filesystem::path path_;
    std::filesystem::path temporary_; ///< empty: there is none
};

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

int complain(const std::string &problem)
{
    std::fprintf(stderr, "pilot: %s\n", problem.c_str());
    return 1;
}

} // namespace

int run(const Options &options, const handheld::Program &program, const Subject &subject)
{
    const int script =
        options.script == "-" ? STDIN_FILENO : open(options.script.c_str(), O_RDONLY | O_CLOEXEC);
    if (script < 0) {
        return complain(host::fileProblem(options.script));
    }
    StoreFolder store;
    if (const auto problem = store.make(options.store)) {
        return complain(*problem);
    }
    const auto [start, unread] = startOf(script);
    if (unread) {
        return complain(*unread);
    }
    std::string_view rest = start;
    int lines = 0;
    const auto [beginning, mistake] = record::takeBeginning(rest, lines);
    if (mistake) {
        complain(*mistake);
        return 2;
    }
    const auto unplaced =
        options.store ? std::nullopt : placeStore(beginning, options.script, store.path());
    if (unplaced) {
        return complain(*unplaced);
    }
    RunState first;
    first.clock = options.clock.value_or(beginning.clock);
    first.orientation = options.landscape || beginning.landscape ? 1 : 0;
    return runUntilFinished(first, [&](RunState &state, Outcome &outcome) {
        play(script, state, outcome, store.path(), subject, [&](host::Host &host) {
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
