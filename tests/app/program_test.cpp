// The whole program, from its entry point to its end.
#include <gtest/gtest.h>

#include "app/window.h"
#include "gdi/objects.h"
#include "pilot/inspect.h"
#include "resources/program_resources.h"
#include "resources/resource.h"
#include "support/fake_host.h"

TEST(Program, LeavesNothingBehind)
{
    SwitchedOn handheld(programResources());
    FakeHost &host = handheld.host;
    constexpr int gameMenu = 0; // the buttons of the menu bar
    constexpr int toolsMenu = 1;
    const auto choose = [&](int button, int command) {
        host.tapAt(inspect::menuBarButton, button);
        host.tapAt(inspect::openMenuItem, command);
    };
    choose(toolsMenu, IDM_GAME_OPTIONS);
    host.tapAt(inspect::control, IDC_QUEUE);
    host.tapAt(inspect::openListItem, IDC_QUEUE, 1);
    host.tapAt(inspect::okButton);
    choose(toolsMenu, IDM_ABOUT);
    host.tapAt(inspect::okButton);
    choose(gameMenu, IDM_NEW_GAME);
    host.act([&] {
        host.key(VK_UP, true, 500);
        host.key(VK_UP, false, 2000);
    });
    host.act([] {
        EXPECT_FALSE(inspect::liveObjects().empty());
        EXPECT_FALSE(gdi::liveObjects().empty());
    });
    choose(gameMenu, IDM_ABANDON_GAME);
    host.give({.kind = host::Event::Kind::Close});

    WCHAR commandLine[] = u"";
    EXPECT_EQ(WinMain(HINSTANCE{1}, {}, commandLine, SW_SHOWNORMAL), 0);
    EXPECT_EQ(host.boxes.size(), 1U);
    EXPECT_EQ(inspect::liveObjects(), std::vector<std::string>{});
    EXPECT_EQ(gdi::liveObjects(), std::vector<std::string>{});
}
