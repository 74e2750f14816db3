// The system's text functions.
#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <string>

#include "winbase.h"

namespace {

bool isDigit(WCHAR unit) { return unit >= u'0' && unit <= u'9'; }

/// Writes a result of limited length, leaving room for the terminator.
class Writer
{
public:
    explicit Writer(LPWSTR buffer) : buffer_(buffer) {}

    void put(WCHAR unit)
    {
        if (length_ < capacity - 1) {
            buffer_[length_++] = unit;
        }
    }
    void put(std::u16string_view text, int width, WCHAR fill)
    {
        for (int i = static_cast<int>(text.size()); i < width; ++i) {
            put(fill);
        }
        for (const WCHAR unit : text) {
            put(unit);
        }
    }
    int finish()
    {
        buffer_[length_] = 0;
        return length_;
    }

private:
    static constexpr int capacity = 1024;
    LPWSTR buffer_;
    int length_ = 0;
};

void putNumber(Writer &out, long long value, int width, bool zeros)
{
    if (zeros && value < 0) {
        out.put(u'-');
        value = -value;
        --width;
    }
    std::array<char, 24> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    const std::u16string number(digits.data(), end);
    out.put(number, width, zeros ? u'0' : u' ');
}

/// A width: digits, which are taken off the format.
int takeWidth(LPCWSTR &format)
{
    constexpr int widest = 1024;
    int width = 0;
    for (; isDigit(*format); ++format) {
        width = std::min(width * 10 + (*format - u'0'), widest);
    }
    return width;
}

/// Writes a value as `kind` says; false when that is none of the kinds.
bool putValue(Writer &out, const handheld::FormatValue &value, WCHAR kind, int width, bool zeros)
{
    switch (kind) {
    case u'd':
    case u'u':
        putNumber(out, value.number, width, zeros);
        return true;
    case u'c': {
        const auto unit = static_cast<WCHAR>(value.number);
        out.put({&unit, 1}, width, u' ');
        return true;
    }
    case u's':
        out.put(value.text ? value.text : u"(null)", width, u' ');
        return true;
    default:
        return false;
    }
}

} // namespace

int lstrlenW(LPCWSTR text) { return text ? static_cast<int>(std::u16string_view(text).size()) : 0; }

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

LPWSTR _itow(int value, LPWSTR buffer, int radix)
{
    std::array<char, 33> digits;
    char *const begin = digits.data();
    // Only decimal numbers carry a sign; in any other radix the bits are shown.
    const auto end =
        radix == 10
            ? std::to_chars(begin, begin + digits.size(), value).ptr
            : std::to_chars(begin, begin + digits.size(), static_cast<unsigned>(value), radix).ptr;
    *std::copy(begin, end, buffer) = 0;
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

int handheld::formatText(LPWSTR buffer, LPCWSTR format, std::initializer_list<FormatValue> values)
{
    Writer out(buffer);
    const FormatValue *value = values.begin();
    for (; *format; ++format) {
        if (*format != u'%' || *++format == u'%') {
            out.put(*format);
            continue;
        }
        const bool zeros = *format == u'0';
        const int width = takeWidth(format);
        if (value == values.end() || !putValue(out, *value++, *format, width, zeros)) {
            break;
        }
    }
    return out.finish();
}
