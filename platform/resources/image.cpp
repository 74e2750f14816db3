// The .res image is a row of entries: a header with sizes, type and name, then the data, both
// padded to four bytes. Damaged images are safe to read: the first entry that does not fit ends the
// image.
#include "resources/image.h"

#include <algorithm>
#include <optional>

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

std::optional<Entry> readEntry(Bytes image, std::size_t start)
{
    constexpr std::size_t smallestHeader = 32;
    if (start > image.size() || image.size() - start < smallestHeader) {
        return std::nullopt;
    }
    const Bytes rest = image.subspan(start);
    base::ByteReader sizes(rest);
    const std::size_t dataSize = sizes.doubleWord();
    const std::size_t headerSize = sizes.doubleWord();
    if (headerSize < smallestHeader || headerSize % 4 != 0 || headerSize > rest.size() ||
        dataSize > rest.size() - headerSize)
    {
        return std::nullopt;
    }
    base::ByteReader header(rest.first(headerSize));
    header.skip(sizes.position());
    Entry entry{start, start + aligned(headerSize + dataSize), {}, {}, {}};
    entry.type = Name::read(header);
    entry.name = Name::read(header);
    entry.data = rest.subspan(headerSize, dataSize);
    return header.good() ? std::optional(std::move(entry)) : std::nullopt;
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

std::optional<Entry> findNamed(const Name &type, const Name &name)
{
    if (type == Name{}) {
        return std::nullopt; // or the empty entry at the start of every image would be found
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

Name Name::read(base::ByteReader &reader)
{
    constexpr std::uint16_t numberFollows = 0xFFFF;
    const std::uint16_t first = reader.word();
    if (first == numberFollows) {
        return {reader.word(), {}};
    }
    return first == 0 ? Name{} : Name{0, static_cast<char16_t>(first) + reader.text()};
}

bool operator==(const Name &a, const Name &b)
{
    return a.text.empty() ? b.text.empty() && a.number == b.number : base::sameName(a.text, b.text);
}

std::uint32_t locate(const Name &type, const Name &name)
{
    const auto entry = findNamed(type, name);
    return entry ? static_cast<std::uint32_t>(entry->start + 1) : 0;
}

std::span<const std::byte> at(std::uint32_t place)
{
    const auto entry = findEntry([&](const Entry &each) { return each.start + 1 == place; });
    return entry ? entry->data : Bytes{};
}

std::span<const std::byte> find(const Name &type, const Name &name)
{
    const auto entry = findNamed(type, name);
    return entry ? entry->data : Bytes{};
}

std::span<const std::byte> find(LPCWSTR type, LPCWSTR name)
{
    return find(Name::from(type), Name::from(name));
}

std::u16string_view string(unsigned id)
{
    // A block holds sixteen strings: for each its length and that many code units.
    constexpr unsigned blockSize = 16;
    constexpr std::uint16_t stringTable = 6;
    const Bytes block =
        find({stringTable, {}}, {static_cast<std::uint16_t>(id / blockSize + 1), {}});
    base::ByteReader reader(block);
    for (unsigned index = 0; index < id % blockSize; ++index) {
        reader.skip(std::size_t{2} * reader.word());
    }
    const std::size_t length = reader.word();
    const std::size_t start = reader.position();
    reader.skip(2 * length);
    return reader.good() ? std::u16string_view(
                               reinterpret_cast<const char16_t *>(block.data() + start), length)
                         : std::u16string_view{};
}

} // namespace resources
