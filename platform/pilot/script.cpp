// Reading scripts.
#include "pilot/script.h"

#include <algorithm>
#include <cerrno>
#include <charconv>

#include <unistd.h>

namespace pilot {
namespace {

constexpr std::string_view blanks = " \t";

struct NumberKind
{
    Argument kind;
    std::string_view name;
    long smallest;
    long largest;
};

constexpr NumberKind numberKinds[] = {
    {Argument::Milliseconds, "MS", 0, 2147483647},
    {Argument::OptionalMilliseconds, "MS", 0, 2147483647},
    {Argument::KeyCode, "CODE", 1, 254},
    {Argument::CodeUnit, "CODE", 1, 65535},
    {Argument::Pixel, "a coordinate", 0, 319},
    {Argument::Id, "ID", -32768, 65535},
    {Argument::Index, "INDEX", 0, 65535},
    {Argument::Orientation, "N", 0, 4},
};

std::string readNumber(std::string_view word, const NumberKind &kind, long &number)
{
    const char *end = word.data() + word.size();
    const auto [stop, error] = std::from_chars(word.data(), end, number);
    const bool inRange =
        error == std::errc() && stop == end && number >= kind.smallest && number <= kind.largest;
    if (kind.kind == Argument::Orientation && (!inRange || number == 3)) {
        return "N must be 0, 1, 2 or 4";
    }
    if (!inRange) {
        return std::string(kind.name) + " must be a number from " + std::to_string(kind.smallest) +
               " to " + std::to_string(kind.largest);
    }
    return {};
}

/// Names joined by '+', each the bit of its place.
std::string readModifiers(std::string_view word, long &number)
{
    constexpr std::string_view names[] = {"ctrl", "shift", "esc"};
    while (!word.empty()) {
        const std::string_view name = word.substr(0, word.find('+'));
        const auto found = std::find(std::begin(names), std::end(names), name);
        if (found == std::end(names)) {
            return "only ctrl, shift and esc, joined by +, may follow";
        }
        number |= 1L << (found - std::begin(names));
        word.remove_prefix(std::min(name.size() + 1, word.size()));
    }
    return {};
}

std::string readWord(std::string_view word, Argument kind, Arguments &result, long &number)
{
    if (kind == Argument::UpOrDown || kind == Argument::StylusAction) {
        const bool mayMove = kind == Argument::StylusAction;
        result.text = word;
        if (word == "up" || word == "down" || (mayMove && word == "move")) {
            return {};
        }
        return mayMove ? "\"down\", \"move\" or \"up\" must follow"
                       : "\"down\" or \"up\" must follow";
    }
    if (kind == Argument::OptionalModifiers) {
        return readModifiers(word, number);
    }
    if (kind == Argument::OptionalMilliseconds && word.empty()) {
        number = 25;
        return {};
    }
    const auto *found = std::find_if(std::begin(numberKinds), std::end(numberKinds),
                                     [kind](const NumberKind &each) { return each.kind == kind; });
    return readNumber(word, *found, number);
}

/// The rest of the line without the blanks around it and without a comment.
std::string_view fileName(std::string_view rest)
{
    std::string_view all = rest;
    const char *end = all.data();
    for (std::string_view word = takeWord(rest); !word.empty(); word = takeWord(rest)) {
        end = word.data() + word.size();
    }
    all = all.substr(0, static_cast<std::size_t>(end - all.data()));
    all.remove_prefix(std::min(all.find_first_not_of(blanks), all.size()));
    return all;
}

} // namespace

std::optional<std::string> readLine(int descriptor, bool &readable)
{
    std::string line;
    for (;;) {
        char c = 0;
        const ssize_t count = read(descriptor, &c, 1);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        readable = count >= 0;
        if (count < 0 || (count == 0 && line.empty())) {
            return std::nullopt;
        }
        if (count == 0 || c == '\n') {
            if (!line.empty() && line.back() == '\r') {
                line.pop_back();
            }
            return line;
        }
        line += c;
    }
}

Beginning readBeginning(std::string_view start)
{
    constexpr std::string_view clock = "# clock ";
    Beginning beginning;
    while (start.starts_with('#')) {
        const std::string_view line = start.substr(0, start.find('\n'));
        start.remove_prefix(std::min(line.size() + 1, start.size()));
        std::uint32_t ticks = 0;
        if (line.starts_with(clock) &&
            std::from_chars(line.data() + clock.size(), line.data() + line.size(), ticks).ec ==
                std::errc())
        {
            beginning.clock = ticks;
        }
        beginning.landscape = beginning.landscape || line == "# landscape";
    }
    return beginning;
}

std::string_view takeWord(std::string_view &rest)
{
    rest.remove_prefix(std::min(rest.find_first_not_of(blanks), rest.size()));
    if (rest.starts_with('#')) {
        rest = {};
    }
    const std::string_view word = rest.substr(0, rest.find_first_of(blanks));
    rest.remove_prefix(word.size());
    return word;
}

std::string readArguments(std::string_view rest, const ArgumentList &kinds, Arguments &result)
{
    for (std::size_t i = 0; i < kinds.size() && kinds[i] != Argument::None; ++i) {
        if (kinds[i] == Argument::Text) {
            result.text = rest.substr(std::min<std::size_t>(1, rest.size()));
            return {};
        }
        if (kinds[i] == Argument::File) {
            result.text = fileName(rest);
            return result.text.empty() ? "a file name must follow" : "";
        }
        std::string problem = readWord(takeWord(rest), kinds[i], result, result.numbers[i]);
        if (!problem.empty()) {
            return problem;
        }
    }
    const std::string_view excess = takeWord(rest);
    return excess.empty() ? "" : "\"" + std::string(excess) + "\" is too much";
}

} // namespace pilot
