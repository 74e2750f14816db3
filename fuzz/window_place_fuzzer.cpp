// Takes any bytes as the file that says where the window was. What is read from it lies on a
// desktop, or at least where one could be.
#include <cstdlib>
#include <fstream>

#include "host/sdl/window_place.h"
#include "host/temporary_folder.h"

/// In memory where there is such a folder; one of its own for each process.
extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    return std::filesystem::is_directory("/dev/shm") ? setenv("TMPDIR", "/dev/shm", 0) : 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const host::TemporaryFolder folder("glimra-place");
    if (folder.problem()) {
        std::abort();
    }
    std::ofstream(folder.path() / "window", std::ios::binary)
        .write(reinterpret_cast<const char *>(data), static_cast<std::streamsize>(size));
    const auto place = desktop::loadWindowPlace(folder.path());
    if (!place) {
        return 0;
    }
    const auto within = [](int number, int least) { return number >= least && number <= 32767; };
    if (!within(place->size.width, 1) || !within(place->size.height, 1) ||
        !within(place->corner.x, -32767) || !within(place->corner.y, -32767))
    {
        std::abort();
    }
    const host::Area screens[] = {{0, 0, 1920, 1080}, {-1280, -1024, 0, 0}};
    if (desktop::isOnScreen(*place, screens) && place->size.width > 1920) {
        std::abort();
    }
    return 0;
}
