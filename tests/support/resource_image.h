// Builds .res images for tests, resource by resource.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

class ResourceImage
{
public:
    ResourceImage() { add(0, 0, {}); }

    void add(std::uint16_t type, std::uint16_t name, std::span<const std::uint16_t> words)
    {
        addEntry({0xFFFF, type, 0xFFFF, name}, words);
    }
    /// A resource with a type that is a name, for example u"WAVE"; below, with a name.
    void add(std::u16string type, std::uint16_t name, std::span<const std::uint16_t> words)
    {
        type.append({u'\0', u'\uFFFF', name});
        addEntry({type.begin(), type.end()}, words);
    }
    void add(std::uint16_t type, const std::u16string &name, std::span<const std::uint16_t> words)
    {
        std::vector<std::uint16_t> key{0xFFFF, type};
        key.insert(key.end(), name.c_str(), name.c_str() + name.size() + 1);
        addEntry(key, words);
    }

    std::vector<std::byte> bytes;

private:
    void addEntry(std::vector<std::uint16_t> key, std::span<const std::uint16_t> words)
    {
        key.resize((key.size() + 1) / 2 * 2);
        const auto dataSize = static_cast<std::uint16_t>(words.size() * 2);
        const auto headerSize = static_cast<std::uint16_t>(8 + key.size() * 2 + 16);
        std::vector<std::uint16_t> entry = {dataSize, 0, headerSize, 0};
        entry.insert(entry.end(), key.begin(), key.end());
        entry.resize(headerSize / 2);
        entry.insert(entry.end(), words.begin(), words.end());
        entry.resize((entry.size() + 1) / 2 * 2);
        const auto raw = std::as_bytes(std::span(entry));
        bytes.insert(bytes.end(), raw.begin(), raw.end());
    }
};
