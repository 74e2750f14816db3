// Sets a run of the pilot up: the script, the store, the lives.
#include "host/pilot/pilot.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

#include "host/pilot/lives.h"
#include "host/pilot/player.h"

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

int complain(const std::string &problem)
{
    std::fprintf(stderr, "pilot: %s\n", problem.c_str());
    return 1;
}

} // namespace

int run(const Options &options, const handheld::Program &program, std::span<const std::byte> image)
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
    World first;
    first.clock = options.clock;
    first.orientation = options.orientation;
    return runLives(first, [&](World &world, const Will &will) {
        Player player(script, world, will, store.path(), image);
        player.programEnded(handheld::run(player.host(), program, world.orientation));
    });
}

} // namespace pilot
