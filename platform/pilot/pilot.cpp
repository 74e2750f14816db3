// Sets a run of the pilot up: the script, the store, the lives.
#include "pilot/pilot.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

#include "host/recording_host.h"
#include "pilot/lives.h"
#include "pilot/player.h"

namespace pilot {
namespace {

/// The folder of the store; one that was not asked for goes away in the end.
class StoreFolder
{
public:
    explicit StoreFolder(const std::optional<std::filesystem::path> &wanted) : temporary_(!wanted)
    {
        if (wanted) {
            path_ = *wanted;
            problem_ = host::StoreFile(path_).makeFolder();
            return;
        }
        std::string name = std::filesystem::temp_directory_path() / "glimra-pilot-XXXXXX";
        if (!mkdtemp(name.data())) {
            problem_ = name + ": " + std::strerror(errno);
        }
        path_ = name;
    }
    StoreFolder(const StoreFolder &) = delete;
    StoreFolder &operator=(const StoreFolder &) = delete;
    ~StoreFolder()
    {
        if (temporary_ && problem_.empty()) {
            std::error_code ignored;
            std::filesystem::remove_all(path_, ignored);
        }
    }

    const std::filesystem::path &path() const { return path_; }
    const std::string &problem() const { return problem_; }

private:
    bool temporary_;
    std::filesystem::path path_;
    std::string problem_;
};

/// How the script begins, without taking it from the one who plays it; of a pipe, nothing.
std::string startOf(int script)
{
    std::string start(256, '\0');
    const ssize_t count = pread(script, start.data(), start.size(), lseek(script, 0, SEEK_CUR));
    start.resize(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    return start;
}

void copyRecordedStore(const std::string &script, const std::filesystem::path &folder)
{
    std::error_code ignored; // there need not be one
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
        return complain(options.script + ": " + std::strerror(errno));
    }
    const StoreFolder store(options.store);
    if (!store.problem().empty()) {
        return complain(store.problem());
    }
    if (!options.store) {
        copyRecordedStore(options.script, store.path());
    }
    const Beginning beginning = readBeginning(startOf(script));
    World first;
    first.clock = options.clock.value_or(beginning.clock.value_or(1000));
    first.orientation = options.landscape || beginning.landscape ? 1 : 0;
    return runLives(first, [&](World &world, const Will &will) {
        const bool isFirst = world.line == 0;
        Player player(script, world, will, store.path(), subject);
        std::optional<host::RecordingHost> recorder;
        if (options.record && isFirst) {
            recorder.emplace(player.host(), *options.record, first.orientation != 0);
            if (!recorder->problem().empty()) {
                will.finish(complain(recorder->problem()));
            }
        }
        host::Host &host = recorder ? *recorder : player.host();
        player.programEnded(handheld::run(host, program, world.orientation));
    });
}

} // namespace pilot
