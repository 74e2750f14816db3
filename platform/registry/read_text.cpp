// Reads the registry's file in one pass, line by line, and stops at the first line it does not
// understand.
#include "registry/text.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/utf.h"
#include "winreg.h"

namespace registry {

namespace {

constexpr std::u16string_view header = u"Windows Registry Editor Version 5.00";
constexpr std::u16string_view olderHeader = u"REGEDIT4";

constexpr DWORD REG_EXPAND_SZ = 2;
constexpr DWORD REG_MULTI_SZ = 7;

constexpr bool isBlank(char16_t unit) { return unit == u' ' || unit == u'\t' || unit == u'\r'; }

constexpr int hexDigit(char16_t unit)
{
    if (unit >= u'0' && unit <= u'9') {
        return unit - u'0';
    }
    const int letter = (unit | 0x20) - u'a';
    return letter >= 0 && letter < 6 ? letter + 10 : -1;
}

/// The data of a text value: UTF-16LE with its terminator.
std::vector<BYTE> textData(std::u16string_view text)
{
    std::vector<BYTE> data;
    data.reserve(2 * text.size() + 2);
    for (const char16_t unit : text) {
        data.push_back(static_cast<BYTE>(unit));
        data.push_back(static_cast<BYTE>(unit >> 8U));
    }
    data.insert(data.end(), 2, 0);
    return data;
}

/// Whether nothing, or only a comment, is left of a line.
bool isOver(std::u16string_view line)
{
    const std::size_t start = line.find_first_not_of(u" \t\r");
    return start == std::u16string_view::npos || line[start] == u';';
}

/// The problem is in the line in which this beginning of the text ends.
std::string problemAfter(std::u16string_view text, std::string_view reason)
{
    const auto lineEnds = std::count(text.begin(), text.end(), u'\n');
    return "line " + std::to_string(lineEnds + 1) + ": " + std::string(reason);
}

class Reader
{
public:
    explicit Reader(std::u16string_view text) : text_(text) {}

    std::optional<std::string> read(Hive &hive)
    {
        bool good = readHeader();
        while (good && !atEnd()) {
            good = readLine();
        }
        if (good) {
            hive = std::move(hive_);
        }
        return problem_;
    }

private:
    // Every step returns false when it failed, and has then set the problem.

    bool fail(std::string_view reason)
    {
        problem_ = problemAfter(text_.substr(0, position_), reason);
        return false;
    }

    bool atEnd() const { return position_ == text_.size(); }
    /// The next code unit; the end of the text ends a line.
    char16_t peek() const { return atEnd() ? u'\n' : text_[position_]; }
    /// The same, and goes on. Not to be called at the end of the text.
    char16_t take() { return text_[position_++]; }
    /// Of A to Z, either case.
    bool accept(std::u16string_view word)
    {
        const bool found = base::sameName(text_.substr(position_, word.size()), word);
        position_ += found ? word.size() : 0;
        return found;
    }
    void skipBlanks()
    {
        while (isBlank(peek())) {
            take();
        }
    }
    std::u16string_view restOfLine() const
    {
        return text_.substr(position_, text_.find(u'\n', position_) - position_);
    }

    bool endLine()
    {
        skipBlanks();
        if (peek() == u';') {
            position_ += restOfLine().size();
        }
        return atEnd() || accept(u"\n") || fail("something follows the end of the entry");
    }

    bool readHeader()
    {
        while (!atEnd() && isOver(restOfLine())) {
            endLine();
        }
        if (accept(olderHeader)) {
            narrow_ = true;
        } else if (!accept(header)) {
            return fail("it does not begin with \"Windows Registry Editor Version 5.00\"");
        }
        return endLine();
    }

    bool readLine()
    {
        skipBlanks();
        switch (peek()) {
        case u'[':
            return readKey();
        case u'@':
        case u'"':
            return readValue();
        case u';':
        case u'\n':
            return endLine();
        default:
            return fail("this is neither a key nor a value");
        }
    }

    bool readKey()
    {
        const std::u16string_view line = restOfLine();
        std::size_t bracket = line.find(u']');
        while (bracket != std::u16string_view::npos && !isOver(line.substr(bracket + 1))) {
            bracket = line.find(u']', bracket + 1);
        }
        if (bracket == std::u16string_view::npos) {
            return fail("no closing bracket ends the key");
        }
        std::u16string_view path = line.substr(1, bracket - 1);
        const bool deletes = path.starts_with(u'-');
        path.remove_prefix(deletes ? 1 : 0);
        while (path.ends_with(u'\\')) { // some write the topmost keys so
            path.remove_suffix(1);
        }
        if (path.empty()) {
            return fail("the key has no name");
        }
        if (deletes) {
            hive_.erase(path);
            hive_.eraseAll(std::u16string(path) + u'\\');
            deleted_ = Key{};
            key_ = &deleted_;
        } else {
            key_ = &hive_.obtain(path);
        }
        position_ += bracket + 1;
        return endLine();
    }

    bool readValue()
    {
        if (!key_) {
            return fail("the value belongs to no key");
        }
        std::u16string name;
        if (!accept(u"@") && !readQuoted(name, false)) {
            return false;
        }
        skipBlanks();
        if (!accept(u"=")) {
            return fail("there is no = after the name");
        }
        skipBlanks();
        if (accept(u"-")) {
            key_->values.erase(name);
            return endLine();
        }
        return readData(key_->values.obtain(name)) && endLine();
    }

    bool readQuoted(std::u16string &text, bool mayBreak)
    {
        const std::size_t start = position_;
        take();
        for (;;) {
            if (atEnd() || (peek() == u'\n' && !mayBreak)) {
                position_ = start;
                return fail("the closing quote is missing");
            }
            char16_t unit = take();
            if (unit == u'"') {
                return true;
            }
            if (unit == u'\\') {
                unit = peek();
                if (unit != u'\\' && unit != u'"') {
                    return fail("a backslash stands before neither a backslash nor a quote");
                }
                take();
            }
            text += unit;
        }
    }

    bool readData(Value &value)
    {
        value.data.clear();
        if (peek() == u'"') {
            std::u16string text;
            value.type = REG_SZ;
            const bool good = readQuoted(text, true);
            value.data = textData(text);
            return good;
        }
        if (accept(u"dword:")) {
            return readDword(value);
        }
        if (!accept(u"hex")) {
            return fail("the value is neither a text in quotes nor dword: nor hex:");
        }
        value.type = REG_BINARY;
        if (accept(u"(")) {
            const std::optional<DWORD> type = readNumber(8);
            if (!type || !accept(u")")) {
                return fail("the type in parentheses is not a hexadecimal number");
            }
            value.type = *type;
        }
        return accept(u":") ? readBytes(value) : fail("there is no : after hex");
    }

    bool readDword(Value &value)
    {
        const std::optional<DWORD> number = readNumber(8);
        if (!number) {
            return fail("a dword has one to eight hexadecimal digits");
        }
        value.type = REG_DWORD;
        for (unsigned shift = 0; shift < 32; shift += 8) {
            value.data.push_back(static_cast<BYTE>(*number >> shift));
        }
        return true;
    }

    bool readBytes(Value &value)
    {
        // Older files have one byte per character.
        const bool widen = narrow_ && (value.type == REG_SZ || value.type == REG_EXPAND_SZ ||
                                       value.type == REG_MULTI_SZ);
        do {
            if (!continueLine()) {
                return false;
            }
            if (isOver(restOfLine()) && (!atEnd() || value.data.empty())) {
                return true; // none at all, or a comma behind the last
            }
            const std::optional<DWORD> byte = readNumber(2);
            if (!byte) {
                return fail("a byte of two hexadecimal digits is missing");
            }
            value.data.push_back(static_cast<BYTE>(*byte));
            if (widen) {
                value.data.push_back(0);
            }
            skipBlanks();
        } while (accept(u","));
        return true;
    }

    /// Skips blanks, and a backslash with the line end and the comments after it.
    bool continueLine()
    {
        skipBlanks();
        if (!accept(u"\\")) {
            return true;
        }
        do {
            const std::u16string_view rest = restOfLine();
            position_ += isOver(rest) ? rest.size() : 0;
            if (!accept(u"\n")) {
                return fail("the line does not go on after the backslash");
            }
            skipBlanks();
        } while (peek() == u';');
        return true;
    }

    /// A hexadecimal number of one to `most` digits.
    std::optional<DWORD> readNumber(int most)
    {
        DWORD number = 0;
        int digits = 0;
        for (; hexDigit(peek()) >= 0; ++digits) {
            number = number << 4U | static_cast<DWORD>(hexDigit(take()));
        }
        return digits >= 1 && digits <= most ? std::optional(number) : std::nullopt;
    }

    std::u16string_view text_;
    std::size_t position_ = 0;
    bool narrow_ = false; ///< an older file, whose texts in hex have one byte per character
    Hive hive_;
    Key deleted_;        ///< takes the values listed below a key that is being deleted
    Key *key_ = nullptr; ///< the key whose values follow
    std::optional<std::string> problem_;
};

/// Whether it is a file of the older kind: comments may come before the line that says so.
bool isOlder(std::string_view bytes)
{
    for (;;) {
        bytes.remove_prefix(std::min(bytes.find_first_not_of(" \t\r\n"), bytes.size()));
        if (!bytes.starts_with(';')) {
            return bytes.starts_with("REGEDIT4");
        }
        bytes.remove_prefix(std::min(bytes.find('\n'), bytes.size()));
    }
}

/// Appends the file's text, whatever its encoding. REGEDIT4 files count as Latin-1.
std::optional<std::string> decode(std::string_view bytes, std::u16string &text)
{
    const auto append = [&text](unsigned unit) { text += static_cast<char16_t>(unit); };
    const auto byteAt = [&bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const char *reason = nullptr;
    const bool bigEndian = bytes.starts_with("\xFE\xFF");
    if (bigEndian || bytes.starts_with("\xFF\xFE")) {
        const std::size_t low = bigEndian ? 1 : 0;
        for (std::size_t i = 2; i + 1 < bytes.size(); i += 2) {
            append(byteAt(i + low) | static_cast<unsigned>(byteAt(i + 1 - low)) << 8U);
        }
        reason = bytes.size() % 2 == 0 ? nullptr : "it ends within a character";
    } else if (isOlder(bytes)) {
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            append(byteAt(i));
        }
    } else {
        bytes.remove_prefix(bytes.starts_with("\xEF\xBB\xBF") ? 3 : 0);
        reason = base::appendUtf16(bytes, text) ? nullptr : "it is not UTF-8";
    }
    return reason ? std::optional(problemAfter(text, reason)) : std::nullopt;
}

} // namespace

std::optional<std::string> readText(std::span<const std::byte> bytes, Hive &hive)
{
    std::u16string text;
    const auto *start = reinterpret_cast<const char *>(bytes.data());
    const auto problem = decode(std::string_view(start, bytes.size()), text);
    return problem ? problem : Reader(text).read(hive);
}

} // namespace registry
