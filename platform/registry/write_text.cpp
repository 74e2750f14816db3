// Writes the registry's file.
#include "registry/text.h"

#include <optional>
#include <string_view>

#include "base/utf.h"
#include "winreg.h"

namespace registry {

namespace {

constexpr std::size_t widestLine = 80;

void appendHex(std::string &out, std::uint32_t number, int digits)
{
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) {
        out += "0123456789abcdef"[number >> static_cast<unsigned>(shift) & 0xFU];
    }
}

/// Keeps every name, even one with half a surrogate pair.
std::string encode(std::u16string_view text)
{
    return base::toUtf8(text, base::LoneSurrogate::Kept);
}

void appendQuoted(std::string &out, std::u16string_view text)
{
    out += '"';
    for (const char unit : encode(text)) {
        if (unit == '"' || unit == '\\') {
            out += '\\';
        }
        out += unit;
    }
    out += '"';
}

/// The text of a value that can be written in quotes: a single line with one terminator.
std::optional<std::u16string> plainText(const Value &value)
{
    const std::vector<std::uint8_t> &data = value.data;
    if (value.type != REG_SZ || data.size() < 2 || data.size() % 2 != 0) {
        return std::nullopt;
    }
    std::u16string text;
    for (std::size_t i = 0; i < data.size(); i += 2) {
        text += static_cast<char16_t>(data[i] | data[i + 1] << 8);
    }
    if (text.find_first_of(std::u16string_view(u"\0\r\n", 3)) != text.size() - 1 ||
        text.back() != 0) {
        return std::nullopt;
    }
    text.pop_back();
    return text;
}

void appendBytes(std::string &out, const Value &value)
{
    std::size_t lineStart = out.rfind('\n') + 1;
    out += "hex";
    if (value.type != REG_BINARY) {
        int digits = 1;
        while (digits < 8 && value.type >> (4 * digits) != 0) {
            ++digits;
        }
        out += '(';
        appendHex(out, value.type, digits);
        out += ')';
    }
    out += ':';
    for (std::size_t i = 0; i < value.data.size(); ++i) {
        if (i > 0) {
            out += ',';
        }
        // A byte, its comma and the backslash must fit.
        if (out.size() - lineStart + 4 > widestLine) {
            out += "\\\n";
            lineStart = out.size();
            out += "  ";
        }
        appendHex(out, value.data[i], 2);
    }
}

void appendValue(std::string &out, const Value &value)
{
    if (value.name.empty()) {
        out += '@';
    } else {
        appendQuoted(out, value.name);
    }
    out += '=';
    if (const std::optional<std::u16string> text = plainText(value)) {
        appendQuoted(out, *text);
    } else if (value.type == REG_DWORD && value.data.size() == 4) {
        out += "dword:";
        for (std::size_t i = 4; i-- > 0;) {
            appendHex(out, value.data[i], 2);
        }
    } else {
        appendBytes(out, value);
    }
    out += '\n';
}

} // namespace

std::string writeText(const Hive &hive)
{
    std::string out = "Windows Registry Editor Version 5.00\n";
    Hive written; ///< the names alone
    const auto writeKey = [&](std::u16string_view path) {
        if (path.ends_with(u'\\') || written.find(path)) {
            return;
        }
        written.obtain(path);
        const Key *key = hive.find(path);
        out += "\n[" + encode(key ? key->name : path) + "]\n";
        if (key) {
            for (const Value &value : key->values) {
                appendValue(out, value);
            }
        }
    };
    for (const Key &key : hive) {
        for (std::size_t end = key.name.find(u'\\'); end != key.name.npos;) {
            end = key.name.find(u'\\', end + 1); // the topmost ones always exist
            writeKey(std::u16string_view(key.name).substr(0, end));
        }
        writeKey(key.name);
    }
    return out;
}

} // namespace registry
