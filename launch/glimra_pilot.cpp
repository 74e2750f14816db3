// glimra-pilot: the game on a virtual handheld, played by a script.
#include "app/game_app.h"
#include "app/settings_check.h"
#include "launch/command_line.h"
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

} // namespace

int main(int argc, char **argv)
{
    const CommandLine line(argc, argv, {"pilot", usage, "glimra-pilot " GLIMRA_VERSION "\n"},
                           {{"store"}, {"clock"}, {"landscape", false}, {"record"}}, 1);
    pilot::Options options{.store = line.value("store"),
                           .clock = line.number("clock", 0, 4294967295),
                           .landscape = line.has("landscape"),
                           .record = line.value("record")};
    if (!line.words().empty()) {
        options.script = line.words()[0];
    }
    return pilot::run(options, {WinMain, programResources()},
                      {std::as_bytes(std::span(&gameApp, 1)), [] { return findFault(gameApp); }});
}
