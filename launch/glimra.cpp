// glimra: the game on the desktop.
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

#include <pwd.h>
#include <unistd.h>

#include <windows.h>

#include "handheld.h"
#include "host/recording_host.h"
#include "host/sdl/desktop.h"
#include "host/store_file.h"
#include "resources/program_resources.h"

namespace {

constexpr char usage[] = R"(glimra [--store DIR] [--scale N] [--landscape] [--record FILE]

A falling-block puzzle on a handheld in a window.

  --store DIR   where the settings, the scores and the game in progress are kept;
                else $XDG_DATA_HOME/glimra, else ~/.local/share/glimra
  --scale N     how large the window starts, 1 to 16 times the handheld's screen;
                else where and as large as it was last, or as is comfortable
  --landscape   the handheld starts turned on its side
  --record FILE writes what you do as a script that glimra-pilot plays again exactly; FILE is
                new, and the store at start goes to FILE.reg
  --help, --version

Keys: the arrows are the pad, Enter its centre; Esc or P is button A, C or left Shift
button B, Z or left Ctrl button C, X or Space button D. The game's Tools menu says what
they do. F1 help, F11 full screen, F12 saves a screenshot, Ctrl+Q quits.
While the right Ctrl or the menu key is held, the arrows move a stylus and Space taps;
so does a controller's right stick. With its Back held, Start quits, X helps, Y is full screen.

Exit status: 0 when the game was closed, 1 when there is no display or DIR or FILE cannot be had,
2 for a wrong option.
)";

constexpr int largestScale = 16;

int complain(const std::string &problem, int status)
{
    std::fprintf(stderr, "glimra: %s\n", problem.c_str());
    return status;
}

int complainOfOption(const std::string &problem)
{
    return complain(problem + " (--help tells more)", 2);
}

std::filesystem::path defaultStore()
{
    const char *data = std::getenv("XDG_DATA_HOME");
    if (data && data[0] == '/') {
        return std::filesystem::path(data) / "glimra";
    }
    const char *home = std::getenv("HOME");
    if (!home) {
        const passwd *user = getpwuid(getuid());
        home = user ? user->pw_dir : "/";
    }
    return std::filesystem::path(home) / ".local/share/glimra";
}

bool readScale(std::string_view text, std::optional<int> &scale)
{
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    scale = number;
    return error == std::errc() && end == text.data() + text.size() && number >= 1 &&
           number <= largestScale;
}

int play(const desktop::Options &options, const std::optional<std::filesystem::path> &record)
{
    const auto host = desktop::open(options);
    if (!host) {
        return complain("there is no display to open a window on", 1);
    }
    const handheld::Program program{WinMain, programResources()};
    if (!record) {
        return handheld::run(*host, program, options.landscape ? 1 : 0);
    }
    host::RecordingHost recorder(*host, *record, options.landscape);
    if (!recorder.problem().empty()) {
        return complain(recorder.problem(), 1);
    }
    return handheld::run(recorder, program, options.landscape ? 1 : 0);
}

} // namespace

int main(int argc, char **argv)
{
    desktop::Options options;
    std::optional<std::filesystem::path> record;
    for (int i = 1; i < argc; ++i) {
        const std::string_view word = argv[i];
        const bool takesValue = word == "--store" || word == "--scale" || word == "--record";
        if (takesValue && ++i == argc) {
            return complainOfOption(std::string(word) + " needs a value");
        }
        if (word == "--help" || word == "--version") {
            std::printf("%s", word == "--help" ? usage : "glimra " GLIMRA_VERSION "\n");
            return 0;
        }
        if (word == "--store") {
            options.storeFolder = argv[i];
        } else if (word == "--scale") {
            if (!readScale(argv[i], options.scale)) {
                return complainOfOption("--scale must be a number from 1 to 16");
            }
        } else if (word == "--landscape") {
            options.landscape = true;
        } else if (word == "--record") {
            record = argv[i];
        } else {
            return complainOfOption("unknown option " + std::string(word));
        }
    }
    const bool storeGiven = !options.storeFolder.empty();
    if (!storeGiven) {
        options.storeFolder = defaultStore();
    }
    const std::string problem = host::StoreFile(options.storeFolder).makeFolder();
    if (!problem.empty() && storeGiven) {
        return complain(problem, 1);
    }
    return play(options, record);
}
