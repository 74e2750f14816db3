// Sets a run up: the script, the store, the processes.
#include "pilot/pilot.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include <fcntl.h>
#include <unistd.h>

#include "host/recording_host.h"
#include "host/store_file.h"
#include "pilot/player.h"
#include "pilot/run_process.h"
#include "pilot/script.h"

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
std::string startOf(int script)
{
    std::string start(256, '\0');
    const ssize_t count = pread(script, start.data(), start.size(), lseek(script, 0, SEEK_CUR));
    start.resize(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    return start;
}

void copyRecordedStore(const std::string &script, const std::filesystem::path &folder)
{
    std::error_code ignored; // a script need not have one
    std::filesystem::copy_file(script + ".reg", folder / "registry.reg", ignored);
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
    if (!options.store) {
        copyRecordedStore(options.script, store.path());
    }
    const ScriptHeader header = readHeader(startOf(script));
    RunState first;
    first.clock = options.clock.value_or(header.clock.value_or(1000));
    first.orientation = options.landscape || header.landscape ? 1 : 0;
    return runUntilFinished(first, [&](RunState &state, const Outcome &outcome) {
        play(script, state, outcome, store.path(), subject, [&](host::Host &host) {
            host::RecordingHost recorder(host);
            const bool records = options.record && state.line == 0;
            if (records) {
                if (const auto problem = recorder.begin(*options.record, state.orientation != 0)) {
                    outcome.finish(complain(*problem));
                }
            }
            return handheld::run(records ? recorder : host, program, state.orientation);
        });
    });
}

} // namespace pilot
