// Conversion between UTF-8 and UTF-16.
#include "base/utf.h"

#include <cstddef>
#include <optional>

namespace base {

namespace {

constexpr char32_t replacement = 0xFFFD;

constexpr bool isHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool isLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }
constexpr bool isSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xE000; }

/// The number of bytes of a character whose first byte is `lead`; 0 when no character begins so.
std::size_t lengthFrom(unsigned lead)
{
    return lead < 0x80   ? 1
           : lead < 0xC2 ? 0
           : lead < 0xE0 ? 2
           : lead < 0xF0 ? 3
           : lead < 0xF5 ? 4
                         : 0;
}

/// The character that `bytes` begins with, a surrogate perhaps, or none; its bytes are removed.
std::optional<char32_t> takeCharacter(std::string_view &bytes)
{
    constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const auto lead = static_cast<unsigned char>(bytes.front());
    const std::size_t length = lengthFrom(lead);
    if (length == 0 || length > bytes.size()) {
        return std::nullopt;
    }
    char32_t character = length == 1 ? lead : lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if ((byte & 0xC0U) != 0x80U) {
            return std::nullopt;
        }
        character = character << 6U | (byte & 0x3FU);
    }
    if (character < smallest[length] || character > 0x10FFFF) {
        return std::nullopt;
    }
    bytes.remove_prefix(length);
    return character;
}

void append(char32_t character, std::u16string &text)
{
    if (character < 0x10000) {
        text += static_cast<char16_t>(character);
    } else {
        text += static_cast<char16_t>(0xD7C0 + (character >> 10U));
        text += static_cast<char16_t>(0xDC00 + (character & 0x3FFU));
    }
}

} // namespace

std::string toUtf8(std::u16string_view text, LoneSurrogate lone)
{
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t character = text[i];
        if (isHighSurrogate(character) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
            character = 0x10000 + ((character - 0xD800) << 10U) + (text[++i] - 0xDC00U);
        } else if (isSurrogate(character) && lone == LoneSurrogate::Replaced) {
            character = replacement;
        }
        if (character < 0x80) {
            bytes += static_cast<char>(character);
            continue;
        }
        const unsigned length = character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
        bytes += static_cast<char>(0xF00U >> length | character >> (6 * (length - 1)));
        for (unsigned left = length - 1; left-- > 0;) {
            bytes += static_cast<char>(0x80U | (character >> (6 * left) & 0x3FU));
        }
    }
    return bytes;
}

std::u16string toUtf16(std::string_view bytes)
{
    std::u16string text;
    while (!bytes.empty()) {
        std::string_view rest = bytes;
        const auto character = takeCharacter(rest);
        const bool valid = character && !isSurrogate(*character);
        append(valid ? *character : replacement, text);
        bytes = valid ? rest : bytes.substr(1);
    }
    return text;
}

bool appendUtf16(std::string_view bytes, std::u16string &text)
{
    text.reserve(text.size() + bytes.size());
    while (!bytes.empty()) {
        const auto character = takeCharacter(bytes);
        if (!character) {
            return false;
        }
        append(*character, text);
    }
    return true;
}

} // namespace base
