// Finds a place and a free name for a screenshot.
#include "host/sdl/screenshot.h"

#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <filesystem>

#include <fcntl.h>
#include <unistd.h>

#include "host/descriptor.h"
#include "host/png.h"

namespace desktop {
namespace {

std::filesystem::path pictureFolder()
{
    const char *pictures = std::getenv("XDG_PICTURES_DIR");
    const char *home = std::getenv("HOME");
    std::error_code none;
    if (pictures && std::filesystem::is_directory(pictures, none)) {
        return pictures;
    }
    const std::filesystem::path usual = home ? std::filesystem::path(home) / "Pictures" : "";
    return std::filesystem::is_directory(usual, none) ? usual : std::filesystem::current_path(none);
}

std::string nameNow(const std::string &title)
{
    char time[32];
    const std::time_t now = std::time(nullptr);
    std::strftime(time, sizeof time, " %Y-%m-%d %H-%M-%S", std::localtime(&now));
    return pictureFolder() / (title + time);
}

} // namespace

std::string saveScreenshot(const host::Frame &frame, const std::string &title)
{
    if (!frame.pixels) {
        return "there is nothing on the screen yet";
    }
    const auto picture = host::encodePng(frame);
    // Makes a file of a name that is free.
    const std::string base = nameNow(title);
    std::string name = base + ".png";
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW;
    host::Descriptor file(name, flags);
    for (int number = 2; !file && errno == EEXIST; ++number) {
        name = base + " (" + std::to_string(number) + ").png";
        file = host::Descriptor(name, flags);
    }
    const bool isNew{file};
    if (file && file.writeAll(picture) && file.close()) {
        return "saved " + name;
    }
    auto problem = "the picture is not saved: " + host::fileProblem(name);
    if (isNew) {
        unlink(name.c_str());
    }
    return problem;
}

} // namespace desktop
