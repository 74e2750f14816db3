// glimra-pilot: the game on a virtual handheld, played by a script.
#include "app/settings_check.h"
#include "base/utf.h"
#include "launch/command_line.h"
#include "launch/game_subject.h"
#include "pilot/check.h"
#include "pilot/pilot.h"
#include "resources/program_resources.h"

namespace {

constexpr char usage[] = R"(glimra-pilot [--store DIR] [--clock MS] [--landscape] [--record FILE]
             [SCRIPT]
glimra-pilot --check RECORD

Plays the game by a script, without a display, on a clock that jumps.

  SCRIPT        a file, or standard input when left out or -
  --store DIR   where the settings are kept; left out: a temporary folder, which begins with the
                store that SCRIPT holds, if it is a record
  --clock MS    the tick count at start, 0 to 4294967295; left out: what SCRIPT says in a first
                line "# clock MS", else 1000
  --landscape   the handheld starts turned, as a first line "# landscape" makes it
  --record FILE writes what the player does, up to a restart, as a record: a script without menu,
                click and the like, which begins with the store at start
  --check RECORD plays a record, prints what its games came to, and whether they hold
  --help, --version

Exit status: 0 when the script ran to its end or the record holds, 1 for a file that cannot be read
or written or a record that differs, 2 for a mistake in the script or the options or what is no
record, 3 when the game crashed or `check` found a fault.
)";

} // namespace

int main(int argc, char **argv)
{
    const CommandLine line(argc, argv, {"pilot", usage, "glimra-pilot " GLIMRA_VERSION "\n"},
                           {{"store"}, {"clock"}, {"landscape", false}, {"record"}, {"check"}}, 1);
    pilot::Options options{.store = line.value("store"),
                           .clock = line.number("clock", 0, 4294967295),
                           .landscape = line.has("landscape"),
                           .record = line.value("record"),
                           .version = "Glimra " GLIMRA_VERSION};
    if (!line.words().empty()) {
        options.script = line.words()[0];
    }
    const handheld::Program program{WinMain, programResources()};
    GameLog games;
    const auto account = [&] {
        std::vector<std::string> lines;
        for (const std::u16string &each : games.account()) {
            lines.push_back(base::toUtf8(each));
        }
        return lines;
    };
    const pilot::Subject subject{gameSubject(games), [] { return findFault(gameApp); }, account};
    const auto record = line.value("check");
    return record ? pilot::check(*record, program, subject) : pilot::run(options, program, subject);
}
