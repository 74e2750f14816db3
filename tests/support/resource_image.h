// Builds .res images for tests, resource by resource.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

class ResourceImage
{
public:
    ResourceImage() { add(0, 0, {}); }

    void add(std::uint16_t type, std::uint16_t name, std::span<const std::uint16_t> words)
    {
        addEntry({0xFFFF, type, 0xFFFF, name}, words);
    }
    /// A resource of a named type, u"WAVE" say, or with a name of its own.
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
    void word(std::uint32_t value)
    {
        bytes.push_back(static_cast<std::byte>(value));
        bytes.push_back(static_cast<std::byte>(value >> 8U));
    }
    void doubleWord(std::size_t value)
    {
        word(static_cast<std::uint32_t>(value));
        word(static_cast<std::uint32_t>(value >> 16U));
    }
    void addEntry(std::vector<std::uint16_t> key, std::span<const std::uint16_t> words)
    {
        if (key.size() % 2 != 0) {
            key.push_back(0);
        }
        doubleWord(words.size() * 2);
        doubleWord(8 + key.size() * 2 + 16);
        for (const std::uint16_t unit : key) {
            word(unit);
        }
        bytes.insert(bytes.end(), 16, std::byte{0});
        for (const std::uint16_t unit : words) {
            word(unit);
        }
        bytes.resize((bytes.size() + 3) / 4 * 4);
    }
};
