// The system's text functions.
#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <string>

#include "winbase.h"

namespace {

constexpr std::size_t longestText = 1023; ///< code units that wsprintfW writes, without terminator

bool isDigit(WCHAR unit) { return unit >= u'0' && unit <= u'9'; }

/// Writes the decimal digits of `value`, with its sign, and returns the end.
LPWSTR putDigits(int value, LPWSTR target)
{
    std::array<char, 12> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    return std::copy(digits.data(), end, target);
}

/// Reads a width and moves `format` past it.
std::size_t takeWidth(LPCWSTR &format)
{
    std::size_t width = 0;
    for (; isDigit(*format); ++format) {
        width = std::min(width * 10 + static_cast<std::size_t>(*format - u'0'), longestText);
    }
    return width;
}

/// Appends a value as %d or %c do, filled up to `width`; false for any other `kind`.
bool appendValue(std::u16string &text, int value, WCHAR kind, std::size_t width, bool zeros)
{
    std::array<WCHAR, 12> digits{static_cast<WCHAR>(value)};
    std::u16string_view shown(digits.data(), 1);
    if (kind == u'd') {
        const WCHAR *end = putDigits(value, digits.data());
        shown = {digits.data(), static_cast<std::size_t>(end - digits.data())};
    } else if (kind != u'c') {
        return false;
    }
    const std::size_t fill = width - std::min(width, shown.size());
    if (zeros && value < 0) { // the zeros follow the sign
        text += shown.front();
        shown.remove_prefix(1);
    }
    text.append(fill, zeros ? u'0' : u' ').append(shown);
    return true;
}

} // namespace

LPWSTR lstrcpynW(LPWSTR target, LPCWSTR source, int capacity)
{
    if (!target || !source || capacity <= 0) {
        return nullptr;
    }
    const std::u16string_view text = source;
    const auto length = std::min(text.size(), static_cast<std::size_t>(capacity - 1));
    target[text.copy(target, length)] = 0;
    return target;
}

LPWSTR _itow(int value, LPWSTR buffer, int)
{
    *putDigits(value, buffer) = 0;
    return buffer;
}

int _wtoi(LPCWSTR text)
{
    if (!text) {
        return 0;
    }
    while (*text == u' ' || (*text >= u'\t' && *text <= u'\r')) {
        ++text;
    }
    const bool negative = *text == u'-';
    if (negative || *text == u'+') {
        ++text;
    }
    using Limits = std::numeric_limits<int>;
    const long long largest = negative ? -static_cast<long long>(Limits::min()) : Limits::max();
    long long value = 0;
    for (; isDigit(*text); ++text) {
        value = std::min(value * 10 + (*text - u'0'), largest);
    }
    return static_cast<int>(negative ? -value : value);
}

int handheld::formatText(LPWSTR buffer, LPCWSTR format, std::initializer_list<int> values)
{
    std::u16string text;
    const int *value = values.begin();
    for (; *format; ++format) {
        if (*format != u'%' || *++format == u'%') {
            text += *format;
            continue;
        }
        const bool zeros = *format == u'0';
        const std::size_t width = takeWidth(format);
        if (value == values.end() || !appendValue(text, *value++, *format, width, zeros)) {
            break;
        }
    }
    const std::size_t length = text.copy(buffer, longestText);
    buffer[length] = 0;
    return static_cast<int>(length);
}
