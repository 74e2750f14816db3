// Icons: a group of pictures in the program's resources, of which the host gets the largest.
#include "user/icon.h"

#include <map>
#include <optional>
#include <span>

#include "base/byte_reader.h"
#include "resources/image.h"

namespace {

constexpr int largestSide = 256;

/// The group resource's name, by handle.
std::map<std::uint32_t, resources::Name> icons;

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

/// A picture: a DIB whose stated height counts both the pixels and the mask that follows them.
struct Picture
{
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    unsigned bits = 0; ///< of a pixel: 1, 4, 8, 24 or 32
    std::vector<std::uint32_t> palette;
    std::span<const std::byte> pixels;

    std::size_t stride(unsigned bitsOfPixel) const { return (width * bitsOfPixel + 31) / 32 * 4; }
    std::size_t size() const { return (stride(bits) + stride(1)) * height; }
    unsigned byte(std::size_t offset) const { return std::to_integer<unsigned>(pixels[offset]); }
};

std::optional<Picture> parse(std::span<const std::byte> bytes)
{
    base::ByteReader reader(bytes);
    Picture picture;
    const std::uint32_t header = reader.doubleWord();
    picture.width = reader.doubleWord();
    picture.height = reader.doubleWord() / 2;
    reader.skip(2);
    picture.bits = reader.word();
    const std::uint32_t compression = reader.doubleWord();
    reader.skip(12);
    std::uint32_t colours = reader.doubleWord();
    if (header != 40 || compression != 0 || picture.width - 1 >= largestSide ||
        picture.height - 1 >= largestSide)
    {
        return std::nullopt;
    }
    reader.skip(4);
    if (picture.bits <= 8) {
        colours = colours == 0 ? 1U << picture.bits : colours;
        for (std::uint32_t i = 0; i < colours && reader.good(); ++i) {
            picture.palette.push_back(reader.doubleWord());
        }
    }
    picture.pixels = bytes.subspan(reader.position());
    const bool known = picture.bits == 1 || picture.bits == 4 || picture.bits == 8 ||
                       picture.bits == 24 || picture.bits == 32;
    return known && reader.good() && picture.pixels.size() >= picture.size()
               ? std::optional(picture)
               : std::nullopt;
}

/// A pixel as 0xAARRGGBB; `row` counts from the top.
std::uint32_t pixelAt(const Picture &picture, std::uint32_t x, std::uint32_t row)
{
    const std::size_t line = picture.height - 1 - row;
    const std::size_t start = line * picture.stride(picture.bits);
    const std::size_t mask =
        picture.height * picture.stride(picture.bits) + line * picture.stride(1) + x / 8;
    const std::uint32_t opaque = (picture.byte(mask) >> (7 - x % 8) & 1U) == 0 ? 0xFF000000U : 0;
    if (picture.bits <= 8) {
        const std::size_t bit = std::size_t{x} * picture.bits;
        const unsigned packed = picture.byte(start + bit / 8);
        const unsigned index = packed >> (8 - picture.bits - bit % 8) & ((1U << picture.bits) - 1);
        return (index < picture.palette.size() ? picture.palette[index] & 0xFFFFFFU : 0) | opaque;
    }
    const std::size_t at = start + std::size_t{x} * (picture.bits / 8);
    const std::uint32_t colour =
        picture.byte(at) | picture.byte(at + 1) << 8U | picture.byte(at + 2) << 16U;
    return picture.bits == 32 ? colour | picture.byte(at + 3) << 24U : colour | opaque;
}

} // namespace

HICON LoadIconW(HINSTANCE, LPCWSTR name)
{
    const auto group = resources::Name::from(name);
    if (resources::find(resources::Name::from(RT_GROUP_ICON), group).empty()) {
        return {};
    }
    const HICON icon{static_cast<std::uint32_t>(icons.size() + 1)};
    icons.emplace(icon.value, group);
    return icon;
}

void user::forgetIcons() { icons.clear(); }

host::Icon user::iconPicture(HICON icon)
{
    const auto found = icons.find(icon.value);
    if (found == icons.end()) {
        return {};
    }
    const auto number =
        largestOf(resources::find(resources::Name::from(RT_GROUP_ICON), found->second));
    if (!number) {
        return {};
    }
    const auto picture = parse(resources::find(resources::Name::from(RT_ICON),
                                               resources::Name::from(MAKEINTRESOURCEW(*number))));
    host::Icon result;
    if (!picture) {
        return result;
    }
    result.width = static_cast<int>(picture->width);
    result.height = static_cast<int>(picture->height);
    for (std::uint32_t y = 0; y < picture->height; ++y) {
        for (std::uint32_t x = 0; x < picture->width; ++x) {
            const std::uint32_t pixel = pixelAt(*picture, x, y);
            for (const unsigned shift : {16U, 8U, 0U, 24U}) {
                result.rgba.push_back(static_cast<std::uint8_t>(pixel >> shift));
            }
        }
    }
    return result;
}
