// glimra-pilot: the game on a virtual handheld, played by a script.
#include <charconv>
#include <cstdio>
#include <cstring>
#include <span>
#include <string>
#include <string_view>

#include "app/game_app.h"
#include "app/settings_check.h"
#include "pilot/pilot.h"
#include "resources/program_resources.h"

namespace {

constexpr char usage[] = R"(glimra-pilot [--store DIR] [--clock MS] [--landscape] [--record FILE]
             [SCRIPT]

Plays the game by a script, without a display, on a clock that jumps.

  SCRIPT        a file, or standard input when left out or -
  --store DIR   where the settings are kept; left out: a temporary folder, which begins as a
                copy of SCRIPT.reg when there is one
  --clock MS    the tick count at start, 0 to 4294967295; left out: what SCRIPT says in a first
                line "# clock MS", else 1000
  --landscape   the handheld starts turned, as a first line "# landscape" makes it
  --record FILE writes what the player does, up to a restart, as a script without menu, click
                and the like, and the store at start as FILE.reg
  --help, --version

Exit status: 0 when the script ran to its end, 1 for a file that cannot be read or written,
2 for a mistake in the script or the options, 3 when the game crashed
or `check` found a fault.
)";

int complain(const std::string &problem)
{
    std::fprintf(stderr, "pilot: %s (--help tells more)\n", problem.c_str());
    return 2;
}

bool readClock(std::string_view text, std::uint32_t &clock)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), clock);
    return error == std::errc() && end == text.data() + text.size();
}

} // namespace

int main(int argc, char **argv)
{
    pilot::Options options;
    bool scriptGiven = false;
    for (int i = 1; i < argc; ++i) {
        const std::string_view word = argv[i];
        const bool takesValue = word == "--store" || word == "--clock" || word == "--record";
        if (takesValue && ++i == argc) {
            return complain(std::string(word) + " needs a value");
        }
        if (word == "--help" || word == "--version") {
            std::printf("%s", word == "--help" ? usage : "glimra-pilot " GLIMRA_VERSION "\n");
            return 0;
        }
        if (word == "--store") {
            options.store = argv[i];
        } else if (word == "--clock") {
            if (!readClock(argv[i], options.clock.emplace())) {
                return complain("--clock must be a number from 0 to 4294967295");
            }
        } else if (word == "--landscape") {
            options.landscape = true;
        } else if (word == "--record") {
            options.record = argv[i];
        } else if ((word.starts_with('-') && word != "-") || scriptGiven) {
            return complain("unknown option " + std::string(word));
        } else {
            options.script = word;
            scriptGiven = true;
        }
    }
    return pilot::run(options, {WinMain, programResources()},
                      {std::as_bytes(std::span(&gameApp, 1)), [] { return findFault(gameApp); }});
}
