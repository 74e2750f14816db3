// Command lines: options with "--" before their names, and other words.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

class CommandLine
{
public:
    /// How the executable presents itself.
    struct Texts
    {
        const char *name;    ///< before its messages
        const char *usage;   ///< for --help
        const char *version; ///< for --version
    };
    struct Option
    {
        const char *name;
        bool takesValue = true;
    };

    /// Reads a line with these options and at most `mostWords` other words. --help, --version and
    /// mistakes end the process, with exit status 0 or 2.
    CommandLine(int argc, char **argv, const Texts &texts, const std::vector<Option> &options,
                std::size_t mostWords = 0);

    bool has(const std::string &option) const { return values_.contains(option); }
    std::optional<std::string> value(const std::string &option) const;
    /// The value as a number; any other value is a mistake.
    std::optional<std::int64_t> number(const std::string &option, std::int64_t smallest,
                                       std::int64_t largest) const;
    const std::vector<std::string> &words() const { return words_; }

    /// Says what is wrong on the standard error stream. Returns `status`, for main.
    int complain(const std::string &problem, int status = 1) const;
    /// Ends the process, as a wrong option does.
    [[noreturn]] void refuse(const std::string &mistake) const;

private:
    Texts texts_;
    std::map<std::string, std::string> values_;
    std::vector<std::string> words_;
};
