// Reads command lines with getopt_long, which would also take the beginning of a name for the
// name: here the whole name must stand there.
#include "launch/command_line.h"

#include <charconv>
#include <cstdio>
#include <cstdlib>

#include <getopt.h>

CommandLine::CommandLine(int argc, char **argv, const Texts &texts,
                         const std::vector<Option> &options, std::size_t mostWords)
    : texts_(texts)
{
    std::vector<option> table{{"help", no_argument, nullptr, 0},
                              {"version", no_argument, nullptr, 0}};
    for (const Option &each : options) {
        table.push_back({each.name, each.takesValue ? required_argument : no_argument, nullptr, 0});
    }
    table.push_back({});
    opterr = 0;
    while (optind < argc) {
        const std::string word = argv[optind];
        int index = 0;
        const int code = getopt_long(argc, argv, "-:", table.data(), &index);
        const std::string name = table[static_cast<std::size_t>(index)].name;
        if (code == -1) { // no options follow "--"
            words_.insert(words_.end(), argv + optind, argv + argc);
            break;
        }
        if (code == ':') {
            refuse(word + " needs a value");
        }
        if (code == 1) {
            words_.push_back(word);
        } else if (code != 0 || word.substr(0, word.find('=')) != "--" + name) {
            refuse("unknown option " + word);
        } else if (index < 2) {
            std::printf("%s", index == 0 ? texts.usage : texts.version);
            std::exit(0);
        } else {
            values_[name] = optarg ? optarg : "";
        }
    }
    if (words_.size() > mostWords) {
        refuse("unknown option " + words_[mostWords]);
    }
}

std::optional<std::string> CommandLine::value(const std::string &option) const
{
    const auto found = values_.find(option);
    return found == values_.end() ? std::nullopt : std::optional(found->second);
}

std::optional<std::int64_t> CommandLine::number(const std::string &option, std::int64_t smallest,
                                                std::int64_t largest) const
{
    const auto text = value(option);
    if (!text) {
        return std::nullopt;
    }
    std::int64_t number = 0;
    const char *end = text->data() + text->size();
    const auto [stop, error] = std::from_chars(text->data(), end, number);
    if (error != std::errc() || stop != end || number < smallest || number > largest) {
        refuse("--" + option + " must be a number from " + std::to_string(smallest) + " to " +
               std::to_string(largest));
    }
    return number;
}

int CommandLine::complain(const std::string &problem, int status) const
{
    std::fprintf(stderr, "%s: %s\n", texts_.name, problem.c_str());
    return status;
}

void CommandLine::refuse(const std::string &mistake) const
{
    std::exit(complain(mistake + " (--help lists the options)", 2));
}
