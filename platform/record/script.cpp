// Reads lines of scripts.
#include "record/script.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace record {
namespace {

constexpr std::string_view blanks = " \t";

struct NumberKind
{
    Argument kind;
    std::string_view name;
    int smallest;
    int largest;
    std::string_view usual = {}; ///< when it is left out
};

constexpr NumberKind numberKinds[] = {
    {Argument::Milliseconds, "MS", 0, 2147483647},
    {Argument::OptionalMilliseconds, "MS", 0, 2147483647, "25"},
    {Argument::KeyCode, "CODE", 1, 254},
    {Argument::CodeUnit, "CODE", 1, 65535},
    {Argument::Pixel, "a coordinate", 0, 319},
    {Argument::Id, "ID", -32768, 65535},
    {Argument::Index, "INDEX", 0, 65535},
    {Argument::Orientation, "N", 0, 4},
    {Argument::OptionalRate, "FPS", 1, 60, "40"},
};

host::Problem readNumber(std::string_view word, Argument kind, int &number)
{
    const auto *range = std::find_if(std::begin(numberKinds), std::end(numberKinds),
                                     [&](const NumberKind &each) { return each.kind == kind; });
    word = word.empty() ? range->usual : word;
    const char *end = word.data() + word.size();
    const auto [stop, error] = std::from_chars(word.data(), end, number);
    const bool inRange = error == std::errc() && stop == end && number >= range->smallest &&
                         number <= range->largest;
    if (kind == Argument::Orientation && (!inRange || number == 3)) {
        return "N must be 0, 1, 2 or 4";
    }
    if (!inRange) {
        return std::string(range->name) + " must be a number from " +
               std::to_string(range->smallest) + " to " + std::to_string(range->largest);
    }
    return std::nullopt;
}

/// Names joined by '+'; the first stands for 1, the second for 2, the third for 4.
host::Problem readModifiers(std::string_view word, int &number)
{
    constexpr std::string_view names[] = {"ctrl", "shift", "esc"};
    while (!word.empty()) {
        const std::string_view name = word.substr(0, word.find('+'));
        const auto *found = std::find(std::begin(names), std::end(names), name);
        if (found == std::end(names)) {
            return "only ctrl, shift and esc, joined by +, may follow";
        }
        number |= 1 << (found - std::begin(names));
        word.remove_prefix(std::min(name.size() + 1, word.size()));
    }
    return std::nullopt;
}

host::Problem readWord(std::string_view word, Argument kind, Arguments &result, int &number)
{
    if (kind == Argument::Word) {
        result.text = word;
        return word.empty() ? host::Problem("a file name must follow") : std::nullopt;
    }
    const bool mayMove = kind == Argument::StylusAction;
    if (kind == Argument::UpOrDown || mayMove) {
        result.text = word;
        if (word == "up" || word == "down" || (mayMove && word == "move")) {
            return std::nullopt;
        }
        return mayMove ? "\"down\", \"move\" or \"up\" must follow"
                       : "\"down\" or \"up\" must follow";
    }
    if (kind == Argument::OptionalModifiers) {
        return readModifiers(word, number);
    }
    return readNumber(word, kind, number);
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

host::Result<Arguments> readArguments(std::string_view rest, const ArgumentList &kinds)
{
    Arguments result;
    for (std::size_t i = 0; i < kinds.size() && kinds[i] != Argument::None; ++i) {
        if (kinds[i] == Argument::Text) {
            result.text = rest.substr(std::min<std::size_t>(1, rest.size()));
            return {result, {}};
        }
        if (kinds[i] == Argument::File) {
            result.text = fileName(rest);
            return {result,
                    result.text.empty() ? host::Problem("a file name must follow") : std::nullopt};
        }
        if (auto problem = readWord(takeWord(rest), kinds[i], result, result.numbers[i])) {
            return {{}, problem};
        }
    }
    const std::string_view excess = takeWord(rest);
    return {result, excess.empty() ? std::nullopt
                                   : host::Problem("\"" + std::string(excess) + "\" is too much")};
}

} // namespace record
