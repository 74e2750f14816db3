// Icons: a group of pictures in the program's resources, of which the host gets the largest.
#include "user/icon.h"

#include <optional>
#include <span>

#include "gdi/dib.h"
#include "resources/image.h"

namespace {

constexpr int largestSide = 256;

/// The resource number of the largest picture of a group.
std::optional<std::uint16_t> largestOf(std::span<const std::byte> group)
{
    base::ByteReader reader(group);
    reader.skip(4);
    const int count = reader.word();
    std::optional<std::uint16_t> largest;
    int widest = 0;
    for (int i = 0; i < count; ++i) {
        const int width = reader.byte();
        reader.skip(11); // height, colours, planes, bits and size
        const std::uint16_t number = reader.word();
        if (reader.good() && (width == 0 ? largestSide : width) > widest) {
            widest = width == 0 ? largestSide : width;
            largest = number;
        }
    }
    return largest;
}

/// A picture of 8 bits a pixel: a DIB whose stated height counts both the pixels and the mask that
/// follows them.
struct Picture
{
    gdi::DibHeader header;
    std::uint32_t height; ///< of the pixels alone
    std::vector<std::uint32_t> palette;
    std::span<const std::byte> pixels;

    unsigned byte(std::size_t offset) const { return std::to_integer<unsigned>(pixels[offset]); }
};

std::optional<Picture> parse(std::span<const std::byte> bytes)
{
    constexpr std::size_t paletteSize = 256;
    base::ByteReader reader(bytes);
    const auto header = gdi::readDibHeader(reader);
    if (!header || header->bits != 8 || header->width - 1 >= largestSide ||
        header->height / 2 - 1 >= largestSide)
    {
        return std::nullopt;
    }
    Picture picture{*header, header->height / 2, std::vector<std::uint32_t>(paletteSize), {}};
    for (std::uint32_t i = 0; i < header->colours; ++i) {
        picture.palette[i] = reader.doubleWord();
    }
    picture.pixels = bytes.subspan(reader.position());
    const std::size_t needed = (header->rowSize(8) + header->rowSize(1)) * picture.height;
    return reader.good() && picture.pixels.size() >= needed ? std::optional(picture) : std::nullopt;
}

/// A pixel as 0xAARRGGBB; `row` counts from the top.
std::uint32_t pixelAt(const Picture &picture, std::uint32_t x, std::uint32_t row)
{
    const std::size_t line = picture.height - 1 - row;
    const std::size_t stride = picture.header.rowSize(8);
    const std::size_t mask = picture.height * stride + line * picture.header.rowSize(1) + x / 8;
    const bool transparent = (picture.byte(mask) >> (7 - x % 8) & 1U) != 0;
    const std::uint32_t colour = picture.palette[picture.byte(line * stride + x)];
    return (colour & 0xFFFFFFU) | (transparent ? 0 : 0xFF000000U);
}

} // namespace

HICON LoadIconW(HINSTANCE, LPCWSTR name)
{
    return {resources::locate(resources::Name::from(RT_GROUP_ICON), resources::Name::from(name))};
}

host::Icon user::iconPicture(HICON icon)
{
    const auto number = largestOf(resources::at(icon.value));
    if (!number) {
        return {};
    }
    const auto picture = parse(resources::find(RT_ICON, MAKEINTRESOURCEW(*number)));
    if (!picture) {
        return {};
    }
    host::Icon result;
    result.width = static_cast<int>(picture->header.width);
    result.height = static_cast<int>(picture->height);
    for (std::uint32_t y = 0; y < picture->height; ++y) {
        for (std::uint32_t x = 0; x < picture->header.width; ++x) {
            const std::uint32_t pixel = pixelAt(*picture, x, y);
            for (const unsigned shift : {16U, 8U, 0U, 24U}) {
                result.rgba.push_back(static_cast<std::uint8_t>(pixel >> shift));
            }
        }
    }
    return result;
}
