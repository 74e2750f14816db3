// Writes PNG files with libpng.
#include "host/png.h"

#include <fcntl.h>

#include "host/descriptor.h"
#include "host/pixel.h"

#include <png.h>

namespace host {

std::vector<std::byte> encodePng(const Frame &frame)
{
    const auto count =
        static_cast<std::size_t>(frame.width) * static_cast<std::size_t>(frame.height);
    std::vector<png_byte> rgb;
    rgb.reserve(count * 3);
    for (const Pixel pixel : std::span(frame.pixels, count)) {
        const auto [red, green, blue] = unpack(pixel);
        rgb.insert(rgb.end(), {red, green, blue});
    }
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(frame.width);
    image.height = static_cast<png_uint_32>(frame.height);
    image.format = PNG_FORMAT_RGB;
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
    std::vector<std::byte> bytes(size);
    const int written =
        png_image_write_to_memory(&image, bytes.data(), &size, 0, rgb.data(), 0, nullptr);
    bytes.resize(written != 0 ? size : 0);
    return bytes;
}

Problem writePng(const std::filesystem::path &file, const Frame &frame)
{
    Descriptor target(file, O_WRONLY | O_CREAT | O_TRUNC);
    const auto bytes = encodePng(frame);
    return target && !bytes.empty() && target.writeAll(bytes) && target.close()
               ? std::nullopt
               : Problem(fileProblem(file));
}

} // namespace host
