// The .res image: entries one behind the other, each a header with sizes, type and name, and its
// data, both padded to four bytes. Whatever the bytes, nothing outside of them is read: an entry
// that does not fit ends the image.
#include "resources/image.h"

#include <algorithm>
#include <cstring>

#include "base/names.h"

namespace resources {

namespace {

using Bytes = std::span<const std::byte>;

Bytes inUse;

struct Entry
{
    std::size_t start = 0; ///< of the header in the image
    std::size_t next = 0;  ///< where the next entry starts
    Name type;
    Name name;
    Bytes data;
};

std::size_t aligned(std::size_t offset) { return (offset + 3) / 4 * 4; }

template <class Integer>
Integer read(Bytes bytes, std::size_t offset)
{
    Integer value = 0;
    std::memcpy(&value, bytes.data() + offset, sizeof value);
    return value;
}

/// The name or type at `offset`, which is moved behind it; nothing when the header ends before.
std::optional<Name> readName(Bytes header, std::size_t &offset)
{
    constexpr std::uint16_t numberFollows = 0xFFFF;
    Name name;
    while (offset + 2 <= header.size()) {
        const auto unit = read<std::uint16_t>(header, offset);
        offset += 2;
        if (unit == 0) {
            return name;
        }
        if (unit == numberFollows && name.text.empty()) {
            if (offset + 2 > header.size()) {
                break;
            }
            name.number = read<std::uint16_t>(header, offset);
            offset += 2;
            return name;
        }
        name.text += static_cast<char16_t>(unit);
    }
    return std::nullopt;
}

std::optional<Entry> readEntry(Bytes image, std::size_t start)
{
    constexpr std::size_t smallestHeader = 32;
    if (start > image.size() || image.size() - start < smallestHeader) {
        return std::nullopt;
    }
    const Bytes rest = image.subspan(start);
    const std::size_t dataSize = read<std::uint32_t>(rest, 0);
    const std::size_t headerSize = read<std::uint32_t>(rest, 4);
    if (headerSize < smallestHeader || headerSize % 4 != 0 || headerSize > rest.size() ||
        dataSize > rest.size() - headerSize)
    {
        return std::nullopt;
    }
    Entry entry{start, start + aligned(headerSize + dataSize), {}, {}, {}};
    std::size_t offset = 8;
    auto type = readName(rest.first(headerSize), offset);
    auto name = type ? readName(rest.first(headerSize), offset) : std::nullopt;
    if (!name) {
        return std::nullopt;
    }
    entry.type = std::move(*type);
    entry.name = std::move(*name);
    entry.data = rest.subspan(headerSize, dataSize);
    return entry;
}

/// The first entry that `matches`.
template <class Predicate>
std::optional<Entry> findEntry(Predicate matches)
{
    std::size_t start = 0;
    while (auto entry = readEntry(inUse, start)) {
        if (matches(*entry)) {
            return entry;
        }
        start = entry->next;
    }
    return std::nullopt;
}

std::optional<Entry> named(const Name &type, const Name &name)
{
    if (type == Name{}) {
        return std::nullopt; // the empty entry that begins every image
    }
    return findEntry([&](const Entry &each) { return each.type == type && each.name == name; });
}

} // namespace

void setImage(Bytes bytes) { inUse = bytes; }

Bytes image() { return inUse; }

bool isNumber(LPCWSTR name)
{
    constexpr std::uintptr_t firstAddress = 0x10000;
    return reinterpret_cast<std::uintptr_t>(name) < firstAddress;
}

Name Name::from(LPCWSTR name)
{
    const auto number = static_cast<std::uint16_t>(reinterpret_cast<std::uintptr_t>(name));
    return isNumber(name) ? Name{number, {}} : Name{0, name};
}

bool operator==(const Name &a, const Name &b)
{
    return a.text.empty() ? b.text.empty() && a.number == b.number : base::sameName(a.text, b.text);
}

std::uint32_t locate(const Name &type, const Name &name)
{
    const auto entry = named(type, name);
    return entry ? static_cast<std::uint32_t>(entry->start + 1) : 0;
}

std::span<const std::byte> at(std::uint32_t place)
{
    const auto entry = findEntry([&](const Entry &each) { return each.start + 1 == place; });
    return entry ? entry->data : Bytes{};
}

std::span<const std::byte> find(const Name &type, const Name &name)
{
    const auto entry = named(type, name);
    return entry ? entry->data : Bytes{};
}

std::u16string_view string(unsigned id)
{
    // Sixteen strings make a block; each is its length and that many code units.
    constexpr unsigned blockSize = 16;
    constexpr std::uint16_t stringTable = 6;
    const Bytes block =
        find({stringTable, {}}, {static_cast<std::uint16_t>(id / blockSize + 1), {}});
    std::size_t offset = 0;
    for (unsigned index = 0; offset + 2 <= block.size(); ++index) {
        const std::size_t length = read<std::uint16_t>(block, offset);
        offset += 2;
        if (length > (block.size() - offset) / 2) {
            break;
        }
        if (index == id % blockSize) {
            return {reinterpret_cast<const char16_t *>(block.data() + offset), length};
        }
        offset += length * 2;
    }
    return {};
}

} // namespace resources
