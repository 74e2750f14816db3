// The game in a browser page. An instance of the program plays the player's own game and records
// it, or shows a record, or plays one to its end, as its command line says.
#include <cstdlib>
#include <cstring>
#include <span>
#include <string_view>
#include <utility>

#include <windows.h>

#include "app/game_app.h"
#include "app/situation.h"
#include "handheld.h"
#include "host/web/web_host.h"
#include "launch/game_subject.h"
#include "launch/quiet_ticks.h"
#include "launch/record_end.h"
#include "record/recording_host.h"
#include "record/watching_host.h"
#include "registry/text.h"
#include "resources/program_resources.h"

namespace {

record::RecordingHost *theRecorder = nullptr;

char *toPage(const host::Problem &problem) { return problem ? strdup(problem->c_str()) : nullptr; }

/// The word that the page has for a situation.
const char *kindOf(const Situation &before, const Situation &now)
{
    switch (now.stage) {
    case Stage::Title:
        return "title";
    case Stage::Playing:
        return before.stage == Stage::Playing ? "level" : "game";
    case Stage::Paused:
        return "paused";
    case Stage::Over:
        break;
    }
    return "over";
}

std::optional<web::State> changedState()
{
    static std::optional<Situation> last;
    const Situation now = situationOf(gameApp);
    if (last == now) {
        return std::nullopt;
    }
    const Situation before = std::exchange(last, now).value_or(Situation{});
    return web::State{kindOf(before, now), describeChange(before, now)};
}

/// Only in the player's own game: a record has moments of its own.
std::uint32_t latest(std::uint32_t moment)
{
    constexpr int longest = 900; ///< milliseconds, in which a piece falls a row on the first level
    return theRecorder ? lastQuietTick(moment, longest) : moment;
}

/// Plays the player's own game.
int play(host::Host &host, const handheld::Program &program)
{
    GameLog games;
    record::RecordingHost recorder(host);
    recorder.begin("Glimra " GLIMRA_VERSION, false, gameSubject(games), [](std::string_view lines) {
        web::keepRecord(lines);
        return host::Problem();
    });
    theRecorder = &recorder;
    const int exitCode = handheld::run(recorder, program, 0);
    theRecorder = nullptr;
    recorder.close();
    return exitCode;
}

/// `words`: the position in milliseconds, the speed in quarters, 1 when it plays.
int watch(host::Host &host, const handheld::Program &program, std::span<char *> words)
{
    const auto [record, problem] = record::read(web::givenRecord(), true);
    if (problem || words.size() != 3) {
        host.report(problem.value_or("nothing to watch"));
        return 1;
    }
    GameLog games;
    const record::WatchingHost::View view{std::strtoull(words[0], nullptr, 10), std::atoi(words[1]),
                                          std::atoi(words[2]) != 0};
    record::WatchingHost viewer(record, gameSubject(games), host, view,
                                {[](const record::WatchingHost::View &next) {
                                     web::restart(next.position, next.quarterSpeed, next.playing);
                                 },
                                 [] {}});
    return handheld::run(viewer, program, record.beginning.landscape ? 1 : 0);
}

int recover(host::Host &host, const handheld::Program &program)
{
    const auto [record, problem] = record::read(web::givenRecord(), true);
    keepEnd(host, problem ? host::Result<std::string>{{}, problem}
                          : playToEnd(record, host.loadStore(), program));
    return 0;
}

} // namespace

extern "C" {

/// Whether `text`, which the user has opened, can be the store: why not, for the caller to free,
/// or null. The caller's text is freed, too.
char *faultInStore(char *text)
{
    registry::Hive hive;
    const auto problem = registry::readText(std::as_bytes(std::span(std::string_view(text))), hive);
    std::free(text);
    return toPage(problem);
}

/// The same for a record.
char *faultInRecord(char *text)
{
    const auto problem = record::read(text, true).problem;
    std::free(text);
    return toPage(problem);
}

/// The page gets what it has not got yet of the record, up to the present moment.
void catchUp()
{
    if (theRecorder) {
        theRecorder->catchUp();
    }
}
}

/// "watch" and its words, "recover", or nothing.
int main(int argc, char **argv)
{
    const std::span words(argv, static_cast<std::size_t>(argc));
    const std::string_view task = argc > 1 ? words[1] : "play";
    const handheld::Program program{WinMain, programResources()};
    web::WebHost host(changedState, latest);
    return task == "watch"     ? watch(host, program, words.subspan(2))
           : task == "recover" ? recover(host, program)
                               : play(host, program);
}
