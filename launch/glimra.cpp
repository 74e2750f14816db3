// glimra: the game on the desktop.
#include <cstdlib>
#include <filesystem>

#include <pwd.h>
#include <unistd.h>

#include <windows.h>

#include "app/game_app.h"
#include "app/situation.h"
#include "handheld.h"
#include "host/recording_host.h"
#include "host/sdl/desktop.h"
#include "host/standard_streams.h"
#include "host/store_file.h"
#include "launch/command_line.h"
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

std::filesystem::path defaultStore()
{
    const char *data = std::getenv("XDG_DATA_HOME");
    if (data && data[0] == '/') {
        return std::filesystem::path(data) / "glimra";
    }
    const char *home = std::getenv("HOME");
    if (!home || home[0] != '/') {
        const passwd *user = getpwuid(getuid());
        home = user ? user->pw_dir : "/";
    }
    return std::filesystem::path(home) / ".local/share/glimra";
}

} // namespace

int main(int argc, char **argv)
{
    host::secureStandardStreams();
    const CommandLine line(argc, argv, {"glimra", usage, "glimra " GLIMRA_VERSION "\n"},
                           {{"store"}, {"scale"}, {"landscape", false}, {"record"}});
    const auto store = line.value("store");
    const auto record = line.value("record");
    const desktop::Options options{
        .storeFolder = store.value_or(defaultStore()),
        .scale = line.number("scale", 1, 16),
        .landscape = line.has("landscape"),
        .needsScreen = [] { return situationOf(gameApp).stage == Stage::Playing; }};
    const auto problem = host::StoreFile(options.storeFolder).makeFolder();
    if (problem && store) {
        return line.complain(*problem);
    }
    const auto host = desktop::open(options);
    if (!host) {
        return line.complain("there is no display to open a window on");
    }
    host::RecordingHost recorder(*host);
    if (record) {
        if (const auto unrecorded = recorder.begin(*record, options.landscape)) {
            return line.complain(*unrecorded);
        }
    }
    host::Host &played = record ? static_cast<host::Host &>(recorder) : *host;
    return handheld::run(played, {WinMain, programResources()}, options.landscape ? 1 : 0);
}
