// Takes any bytes as the stored record, followed by what a player does. A record that is accepted
// is loaded and played until the program is closed.
#include <array>
#include <cstring>
#include <new>
#include <span>

#include "app/game_app.h"
#include "app/settings.h"
#include "app/settings_check.h"
#include "app/window.h"
#include "resources/module.h"
#include "resources/program_resources.h"
#include "support/fake_host.h"

namespace {

constexpr std::size_t longestScript = 48;

/// One thing a player does: the upper bits of a byte say what, the lower ones how long it takes.
void addStep(FakeHost &host, std::uint8_t step)
{
    constexpr std::array<int, 10> keys{37, 38, 39, 40, 193, 194, 195, 196, 13, 27};
    constexpr std::array<std::uint32_t, 4> delays{1, 25, 400, 3100};
    constexpr std::array eventKinds{host::Event::Kind::Background, host::Event::Kind::Foreground,
                                    host::Event::Kind::Hibernate};
    const std::size_t what = step / delays.size();
    const std::uint32_t delay = delays[step % delays.size()];
    if (what < 2 * keys.size()) {
        host.key(keys[what / 2], what % 2 == 0, delay);
    } else if (what < 2 * keys.size() + eventKinds.size()) {
        host.give({.kind = eventKinds[what - 2 * keys.size()]}, delay);
    } else if (what % 2 == 0) {
        host.tap(120, 240); // in the well, or Play
    } else {
        host.act([] { gameApp.paint(mainWindow, HDC{}); }, delay);
    }
}

void play(const GameApp &stored, std::span<const std::uint8_t> script)
{
    SwitchedOn on(programResources());
    moduleInstance = HINSTANCE{1};
    mainWindow = HWND{};
    saveSettings(stored);
    new (&gameApp) GameApp;
    for (const std::uint8_t step : script.first(std::min(script.size(), longestScript))) {
        addStep(on.host, step);
    }
    on.host.give({.kind = host::Event::Kind::Close}, 25);
    WCHAR noArguments[] = u"";
    WinMain(moduleInstance, HINSTANCE{}, noArguments, SW_SHOWNORMAL);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const GameApp fresh;
    GameApp stored = fresh;
    if (size < sizeof stored) {
        return 0;
    }
    std::memcpy(&stored, data, sizeof stored);
    if (findFault(stored)) {
        return 0;
    }
    play(stored, std::span(data, size).subspan(sizeof stored));
    return 0;
}
