// Writes PNG files with libpng.
#include "host/png.h"

#include "host/pixel.h"

#include <png.h>

namespace host {
namespace {

std::vector<png_byte> expand(const Frame &frame)
{
    const auto count =
        static_cast<std::size_t>(frame.width) * static_cast<std::size_t>(frame.height);
    std::vector<png_byte> rgb;
    rgb.reserve(count * 3);
    for (const Pixel pixel : std::span(frame.pixels, count)) {
        const auto [red, green, blue] = unpack(pixel);
        rgb.insert(rgb.end(), {red, green, blue});
    }
    return rgb;
}

} // namespace

Problem writePng(const std::filesystem::path &file, const Frame &frame)
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(frame.width);
    image.height = static_cast<png_uint_32>(frame.height);
    image.format = PNG_FORMAT_RGB;
    const int written =
        png_image_write_to_file(&image, file.c_str(), 0, expand(frame).data(), 0, nullptr);
    return written != 0 ? std::nullopt : Problem(file.string() + ": " + image.message);
}

} // namespace host
