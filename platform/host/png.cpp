// Writes PNG files with libpng.
#include "host/png.h"

#include <cerrno>
#include <cstring>

#include <png.h>

namespace host {
namespace {

/// Red, green and blue with 8 bits each; the low bits repeat the high ones, so white is white.
std::vector<png_byte> expand(const Frame &frame)
{
    const auto count =
        static_cast<std::size_t>(frame.width) * static_cast<std::size_t>(frame.height);
    std::vector<png_byte> rgb;
    rgb.reserve(count * 3);
    for (const unsigned pixel : std::span(frame.pixels, count)) {
        const unsigned red = pixel >> 11U;
        const unsigned green = pixel >> 5U & 0x3FU;
        const unsigned blue = pixel & 0x1FU;
        rgb.push_back(static_cast<png_byte>(red << 3U | red >> 2U));
        rgb.push_back(static_cast<png_byte>(green << 2U | green >> 4U));
        rgb.push_back(static_cast<png_byte>(blue << 3U | blue >> 2U));
    }
    return rgb;
}

} // namespace

std::string writePng(const std::filesystem::path &file, const Frame &frame)
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(frame.width);
    image.height = static_cast<png_uint_32>(frame.height);
    image.format = PNG_FORMAT_RGB;
    if (png_image_write_to_file(&image, file.c_str(), 0, expand(frame).data(), 0, nullptr) != 0) {
        return {};
    }
    return file.string() + ": " + image.message;
}

} // namespace host
