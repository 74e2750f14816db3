// Conversion between UTF-8 and UTF-16.
#include "base/utf.h"

namespace base {
namespace {

constexpr char32_t replacement = 0xFFFD;

bool isHighSurrogate(char32_t c) { return c >= 0xD800 && c <= 0xDBFF; }
bool isLowSurrogate(char32_t c) { return c >= 0xDC00 && c <= 0xDFFF; }

void appendUtf8(std::string &text, char32_t c)
{
    const auto put = [&text](char32_t byte) { text += static_cast<char>(byte); };
    if (c < 0x80) {
        put(c);
    } else if (c < 0x800) {
        put(0xC0 | c >> 6);
        put(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        put(0xE0 | c >> 12);
        put(0x80 | (c >> 6 & 0x3F));
        put(0x80 | (c & 0x3F));
    } else {
        put(0xF0 | c >> 18);
        put(0x80 | (c >> 12 & 0x3F));
        put(0x80 | (c >> 6 & 0x3F));
        put(0x80 | (c & 0x3F));
    }
}

/// Takes the first character off `rest`.
char32_t takeCharacter(std::string_view &rest)
{
    const auto lead = static_cast<unsigned char>(rest.front());
    rest.remove_prefix(1);
    if (lead < 0x80) {
        return lead;
    }
    const unsigned length = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
    if (lead < 0xC2 || lead > 0xF4 || rest.size() < length) {
        return replacement;
    }
    char32_t c = lead & (0x3FU >> length);
    for (unsigned i = 0; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(rest[i]);
        if ((byte & 0xC0U) != 0x80) {
            return replacement;
        }
        c = c << 6 | (byte & 0x3FU);
    }
    constexpr char32_t smallest[] = {0, 0x80, 0x800, 0x10000};
    if (c < smallest[length] || c > 0x10FFFF || isHighSurrogate(c) || isLowSurrogate(c)) {
        return replacement;
    }
    rest.remove_prefix(length);
    return c;
}

} // namespace

std::string toUtf8(std::u16string_view text)
{
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t c = text[i];
        if (isHighSurrogate(c) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
            c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00U);
        } else if (isHighSurrogate(c) || isLowSurrogate(c)) {
            c = replacement;
        }
        appendUtf8(result, c);
    }
    return result;
}

std::u16string toUtf16(std::string_view text)
{
    std::u16string result;
    while (!text.empty()) {
        const char32_t c = takeCharacter(text);
        if (c >= 0x10000) {
            result += static_cast<char16_t>(0xD7C0 + (c >> 10));
            result += static_cast<char16_t>(0xDC00 + (c & 0x3FF));
        } else {
            result += static_cast<char16_t>(c);
        }
    }
    return result;
}

} // namespace base
