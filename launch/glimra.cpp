// glimra: the game on the desktop.
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <functional>

#include <malloc.h>
#include <pwd.h>
#include <unistd.h>

#include <windows.h>

#include "app/game_log.h"
#include "app/situation.h"
#include "handheld.h"
#include "host/files.h"
#include "host/moment.h"
#include "host/sdl/desktop.h"
#include "host/standard_streams.h"
#include "host/store_file.h"
#include "launch/command_line.h"
#include "launch/game_subject.h"
#include "launch/quiet_ticks.h"
#include "launch/recovery.h"
#include "launch/session_records.h"
#include "launch/watch.h"
#include "record/read_file.h"
#include "record/recording_host.h"
#include "resources/program_resources.h"

namespace {

constexpr char usage[] =
    R"(glimra [--store DIR] [--scale N] [--landscape] [--record FILE | --no-record]
glimra --watch [--scale N] [RECORD]

A falling-block puzzle on a handheld in a window.

  --store DIR   where the settings, the scores and the game in progress are kept;
                else $XDG_DATA_HOME/glimra, else ~/.local/share/glimra
  --scale N     how large the window starts, 1 to 16 times the handheld's screen;
                else where and as large as it was last, or as is comfortable
  --landscape   the handheld starts turned on its side
  --record FILE what you do is recorded in FILE, which is new; else in the folder records beside
                the store, which keeps the newest 20 sessions with a game
  --no-record   it is not recorded
  --watch       shows the game in RECORD, or the latest of your own; F1 says with which keys
  --help, --version

Keys: the arrows are the pad, Enter its centre; Esc or P is button A, C or left Shift
button B, Z or left Ctrl button C, X or Space button D. The game's Tools menu says what
they do. F1 help, F11 full screen, F12 saves a screenshot, Ctrl+Q quits.
While the right Ctrl or the menu key is held, the arrows move a stylus and Space taps;
so does a controller's right stick. With its Back held, Start quits, X helps, Y is full screen.

Exit status: 0 when the game was closed, 1 when there is no display or a file cannot be had, 2 for a
wrong option.
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

/// --watch
int watchRecord(const CommandLine &line, const std::filesystem::path &store,
                const handheld::Program &program)
{
    const auto file = line.words().empty() ? SessionRecords(store).latestGame()
                                           : std::optional<std::filesystem::path>(line.words()[0]);
    if (!file) {
        return line.complain(store.string() + ": no game was recorded yet");
    }
    const auto [record, problem] = record::readFile(*file, true);
    if (problem) {
        return line.complain(*problem);
    }
    const auto unseen = watch(record, line.number("scale", 1, 16), program);
    return unseen ? line.complain(*unseen) : 0;
}

bool isPlaying() { return situationOf(gameApp).stage == Stage::Playing; }

/// The record is written when the program wakes, so this is also how far it may lag behind the
/// game.
std::uint32_t latest(std::uint32_t moment)
{
    constexpr int longest = 250; ///< milliseconds
    return lastQuietTick(moment, longest);
}

/// Whether the record shall be brought to the disk: once a second while a game runs, and once after
/// that. A title page would keep the disk awake for nothing.
std::function<bool()> onceASecondInPlay(const host::Host &host)
{
    return [&host, last = host.ticks(), played = false]() mutable {
        constexpr std::int32_t second = 1000;
        const bool playing = isPlaying();
        played = played || playing;
        if (!played || host::distance(last, host.ticks()) < second) {
            return false;
        }
        last = host.ticks();
        played = playing;
        return true;
    };
}

/// Plays with the session recorded, in a file of its own or in the folder of sessions.
int playRecorded(desktop::Desktop &host, const CommandLine &line, SessionRecords &records,
                 const handheld::Program &program)
{
    const bool landscape = line.has("landscape");
    const auto named = line.value("record");
    const auto [sink, problem] =
        named ? host::makeFile(*named) : records.begin(onceASecondInPlay(host));
    if (problem && named) {
        return line.complain(*problem);
    }
    if (problem) {
        host.report("this session is not recorded: " + *problem);
        return handheld::run(host, program, landscape ? 1 : 0);
    }
    GameLog games;
    record::RecordingHost recorder(host);
    recorder.begin("Glimra " GLIMRA_VERSION, landscape, gameSubject(games), sink);
    const int exitCode = handheld::run(recorder, program, landscape ? 1 : 0);
    recorder.close();
    if (const auto unended = named ? std::nullopt : records.end(!games.account().empty())) {
        host.report("the record is not finished: " + *unended);
    }
    return exitCode;
}

} // namespace

int main(int argc, char **argv)
{
    host::secureStandardStreams();
    // A picture that was read in and converted leaves a hole of its size in the memory of the
    // process; blocks from this size on go back to the system.
    mallopt(M_MMAP_THRESHOLD, 64 * 1024);
    const CommandLine line(argc, argv, {"glimra", usage, "glimra " GLIMRA_VERSION "\n"},
                           {{"store"},
                            {"scale"},
                            {"landscape", false},
                            {"record"},
                            {"no-record", false},
                            {"watch", false}},
                           1);
    const handheld::Program program{WinMain, programResources()};
    const auto store = line.value("store");
    const desktop::Options options{.storeFolder = store.value_or(defaultStore()),
                                   .scale = line.number("scale", 1, 16),
                                   .landscape = line.has("landscape"),
                                   .needsScreen = isPlaying,
                                   .latest = latest};
    if (line.has("watch")) {
        return watchRecord(line, options.storeFolder, program);
    }
    if (!line.words().empty()) {
        line.refuse("unknown option " + line.words()[0]);
    }
    const auto problem = host::StoreFile(options.storeFolder).makeFolder();
    if (problem && store) {
        return line.complain(*problem);
    }
    const auto host = desktop::open(options);
    if (!host) {
        return line.complain("there is no display to open a window on");
    }
    if (line.has("no-record") || host->runsElsewhere()) {
        return handheld::run(*host, program, options.landscape ? 1 : 0);
    }
    SessionRecords records(options.storeFolder);
    recover(*host, options.storeFolder, records, program);
    return playRecorded(*host, line, records, program);
}
