// The game in a browser page.
#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>
#include <variant>

#include <windows.h>

#include "app/game_app.h"
#include "app/situation.h"
#include "handheld.h"
#include "host/web/web.h"
#include "registry/text.h"
#include "resources/program_resources.h"

/// Whether `text`, which the user has opened, can be the store: why not, for the caller to free,
/// or null. The caller's text is freed, too.
extern "C" char *faultInStore(char *text)
{
    const auto content = registry::readText(std::as_bytes(std::span(std::string_view(text))));
    std::free(text);
    const auto *damage = std::get_if<registry::Damage>(&content);
    return damage ? strdup(("line " + std::to_string(damage->line) + ": " + damage->reason).c_str())
                  : nullptr;
}

namespace {

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

} // namespace

int main()
{
    const auto host = web::open(changedState);
    return handheld::run(*host, {WinMain, programResources()}, 0);
}
