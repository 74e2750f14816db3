// Reads and writes records, line by line.
#include "record/record.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <utility>

#include "record/base64.h"
#include "record/digest.h"
#include "record/input_command.h"

namespace record {
namespace {

constexpr std::size_t base64Width = 76;

std::string_view takeLine(std::string_view &text)
{
    std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    while (line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    return line;
}

/// Takes a word off the front of a line.
bool take(std::string_view &line, std::string_view word)
{
    const bool found = line.starts_with(word);
    line.remove_prefix(found ? word.size() : 0);
    return found;
}

template <class Number>
bool readNumber(std::string_view text, Number &number, int base = 10)
{
    const char *end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, base);
    return error == std::errc() && stop == end && !text.empty();
}

host::Problem atLine(int line, const std::string &problem)
{
    return "line " + std::to_string(line) + ": " + problem;
}

/// The lines of the store after the one that says its size.
host::Problem takeStore(std::string_view &text, int &line, std::string_view size, Beginning &result)
{
    std::string letters;
    const int first = line + 1;
    while (text.starts_with("#: ")) {
        std::string_view letter = takeLine(text);
        ++line;
        letters += letter.substr(3);
    }
    std::size_t expected = 0;
    auto bytes = fromBase64(letters);
    if (!readNumber(size, expected) || !bytes || bytes->size() != expected) {
        return atLine(first, "the store is not complete");
    }
    result.store = std::move(bytes);
    return std::nullopt;
}

/// Reads the steps.
class Reader
{
public:
    Reader(std::string_view text, int line) : rest_(text), line_(line) {}

    host::Problem read(std::string_view whole, Record &record)
    {
        while (!rest_.empty()) {
            before_ = whole.substr(0, whole.size() - rest_.size());
            const std::string_view line = takeLine(rest_);
            ++line_;
            if (auto problem = readLine(line, record)) {
                return atLine(line_, *problem);
            }
            if (at_ > longestTime) {
                return atLine(line_, "a record has at most 24 hours");
            }
        }
        record.length = at_;
        return std::nullopt;
    }

private:
    host::Problem readLine(std::string_view line, Record &record)
    {
        if (line.size() > longestLine) {
            return "the line is too long";
        }
        if (closed_) {
            return "nothing comes after \"# closed\"";
        }
        if (take(line, "# ")) {
            return readComment(line, record);
        }
        const std::string name(takeWord(line));
        if (name.empty()) {
            return std::nullopt;
        }
        return name == "wait" || name == "jump" ? readTime(name, line, record)
                                                : readInput(name, line, record);
    }

    host::Problem readComment(std::string_view line, Record &record)
    {
        using enum Step::Kind;
        closed_ = line == "closed";
        if (!take(line, "digest ")) {
            add(record, closed_ ? Closed : Chapter).chapter = line;
            return std::nullopt;
        }
        Step &step = add(record, Digest);
        std::uint64_t lines = 0;
        if (line.size() != 33 || line[16] != ' ' ||
            !readNumber(line.substr(0, 16), step.state, 16) ||
            !readNumber(line.substr(17), lines, 16))
        {
            return "two numbers of 16 hexadecimal digits must follow \"# digest\"";
        }
        digestLines(before_.substr(std::exchange(digestedSize_, before_.size())));
        step.linesHold = digested_.value() == lines;
        return std::nullopt;
    }

    /// As they were written, with a newline each, even if other ends have been made of those.
    void digestLines(std::string_view lines)
    {
        while (!lines.empty()) {
            digested_.add(std::as_bytes(std::span(takeLine(lines))));
            digested_.add(std::as_bytes(std::span(std::string_view("\n"))));
        }
    }

    host::Problem readTime(const std::string &name, std::string_view line, Record &record)
    {
        const auto [arguments, mistake] = readArguments(line, {Argument::Milliseconds});
        if (mistake) {
            return name + ": " + *mistake;
        }
        const auto milliseconds = static_cast<std::uint32_t>(arguments.numbers[0]);
        if (name == "jump") {
            add(record, Step::Kind::Jump).jump = milliseconds;
        }
        at_ += milliseconds;
        return std::nullopt;
    }

    host::Problem readInput(const std::string &name, std::string_view line, Record &record)
    {
        const InputCommand *command = findInputCommand(name);
        if (!command) {
            return "a record cannot hold \"" + name + '"';
        }
        const auto [arguments, mistake] = readArguments(line, command->arguments);
        if (mistake) {
            return name + ": " + *mistake;
        }
        add(record, Step::Kind::Event).event = command->event(arguments);
        return std::nullopt;
    }

    Step &add(Record &record, Step::Kind kind)
    {
        Step &step = record.steps.emplace_back();
        step.kind = kind;
        step.line = line_;
        step.at = at_;
        return step;
    }

    std::string_view rest_;
    int line_;
    std::string_view before_; ///< all lines before the present one
    Digest digested_;
    std::size_t digestedSize_ = 0;
    std::uint64_t at_ = 0;
    bool closed_ = false;
};

} // namespace

std::string write(const Beginning &beginning)
{
    std::string text = "# record " + std::to_string(formatNumber) + "\n# program " +
                       beginning.program + "\n# clock " + std::to_string(beginning.clock) + '\n';
    text += beginning.landscape ? "# landscape\n" : "";
    if (beginning.store) {
        text += "# store " + std::to_string(beginning.store->size()) + '\n';
        const std::string letters = toBase64(*beginning.store);
        for (std::size_t i = 0; i < letters.size(); i += base64Width) {
            text += "#: " + letters.substr(i, base64Width) + '\n';
        }
    }
    return text;
}

host::Result<Beginning> takeBeginning(std::string_view &text, int &line)
{
    Beginning result;
    for (;;) {
        std::string_view rest = text;
        std::string_view first = takeLine(rest);
        int format = 0;
        if (take(first, "# record ")) {
            if (!readNumber(first, format) || format != formatNumber) {
                return {{}, atLine(line + 1, "a format that this version does not know")};
            }
        } else if (take(first, "# program ")) {
            result.program = first;
        } else if (first == "# landscape") {
            result.landscape = true;
        } else if (take(first, "# clock ")) {
            if (!readNumber(first, result.clock)) {
                return {{}, atLine(line + 1, "the clock must be a number from 0 to 4294967295")};
            }
        } else if (take(first, "# store ")) {
            if (auto problem = takeStore(rest, line, first, result)) {
                return {{}, problem};
            }
        } else {
            return {result, {}};
        }
        ++line;
        text = rest;
    }
}

bool Record::hasDigests() const
{
    return std::any_of(steps.begin(), steps.end(),
                       [](const Step &step) { return step.kind == Step::Kind::Digest; });
}

std::string_view wholeLines(std::string_view text)
{
    text = text.substr(0, text.find('\0'));
    return text.substr(0, text.rfind('\n') + 1);
}

host::Result<Record> read(std::string_view text, bool cut)
{
    if (text.size() > largestSize) {
        return {{}, "it is larger than 4 MB"};
    }
    if (cut) {
        text = wholeLines(text);
    }
    std::string_view rest = text;
    int line = 0;
    Record record;
    auto [beginning, problem] = takeBeginning(rest, line);
    if (problem) {
        return {{}, problem};
    }
    if (line == 0) {
        return {{}, "it does not begin as a record does"};
    }
    record.beginning = std::move(beginning);
    if (auto fault = Reader(rest, line).read(text, record)) {
        return {{}, fault};
    }
    return {std::move(record), {}};
}

std::uint64_t digestOf(const Subject &subject, std::uint32_t clock)
{
    Digest digest;
    digest.add(subject.image);
    digest.add(std::as_bytes(std::span(&clock, 1)));
    return digest.value();
}

std::string inHex(std::uint64_t number)
{
    char text[17];
    std::snprintf(text, sizeof text, "%016llX", static_cast<unsigned long long>(number));
    return text;
}

std::string momentText(std::uint64_t milliseconds)
{
    char text[32];
    std::snprintf(text, sizeof text, "%llu:%02u.%03u",
                  static_cast<unsigned long long>(milliseconds / 60000),
                  static_cast<unsigned>(milliseconds / 1000 % 60),
                  static_cast<unsigned>(milliseconds % 1000));
    return text;
}

} // namespace record
