// Finds a place and a free name for a screenshot.
#include "host/sdl/screenshot.h"

#include <cstdlib>
#include <ctime>
#include <filesystem>

#include "host/png.h"

namespace desktop {
namespace {

std::filesystem::path pictureFolder()
{
    const char *pictures = std::getenv("XDG_PICTURES_DIR");
    const char *home = std::getenv("HOME");
    std::error_code ignored;
    if (pictures && std::filesystem::is_directory(pictures, ignored)) {
        return pictures;
    }
    const std::filesystem::path usual = home ? std::filesystem::path(home) / "Pictures" : "";
    return std::filesystem::is_directory(usual, ignored) ? usual : std::filesystem::current_path();
}

std::filesystem::path freeName(const std::string &title)
{
    char time[32];
    const std::time_t now = std::time(nullptr);
    std::strftime(time, sizeof time, " %Y-%m-%d %H-%M-%S", std::localtime(&now));
    const std::string base = pictureFolder() / (title + time);
    std::string name = base + ".png";
    for (int number = 2; std::filesystem::exists(name); ++number) {
        name = base + " (" + std::to_string(number) + ").png";
    }
    return name;
}

} // namespace

std::string saveScreenshot(const host::Frame &frame, const std::string &title)
{
    if (!frame.pixels) {
        return "there is nothing on the screen yet";
    }
    const std::filesystem::path file = freeName(title);
    return host::writePng(file, frame).value_or("saved " + file.string());
}

} // namespace desktop
