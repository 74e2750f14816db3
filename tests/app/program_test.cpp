// The whole program, from its entry point to its end.
#include <gtest/gtest.h>

#include "app/window.h"
#include "gdi/inventory.h"
#include "resources/program_resources.h"
#include "resources/resource.h"
#include "user/user_script.h"

namespace {

TEST(Program, LeavesNothingBehind)
{
    SwitchedOn handheld(programResources());
    UserScript user(handheld.host);
    constexpr int gameMenu = 0; // the buttons of the menu bar
    constexpr int toolsMenu = 1;
    const auto choose = [&](int button, int command) {
        user.tapMenuButton(button);
        user.tapMenuItem(command);
    };
    choose(toolsMenu, IDM_GAME_OPTIONS);
    user.click(IDC_QUEUE);
    user.tapListItem(IDC_QUEUE, 1);
    user.tapOk();
    choose(toolsMenu, IDM_ABOUT);
    user.tapOk();
    choose(gameMenu, IDM_NEW_GAME);
    user.then([&] {
        handheld.host.key(VK_UP, true, 500);
        handheld.host.key(VK_UP, false, 2000);
    });
    user.then([] {
        EXPECT_FALSE(inspect::liveObjects().empty());
        EXPECT_FALSE(gdi::liveObjects().empty());
    });
    choose(gameMenu, IDM_ABANDON_GAME);
    user.give({.kind = host::Event::Kind::Close});

    WCHAR commandLine[] = u"";
    EXPECT_EQ(WinMain(HINSTANCE{1}, {}, commandLine, SW_SHOWNORMAL), 0);
    EXPECT_EQ(handheld.host.boxes.size(), 1U);
    EXPECT_EQ(inspect::liveObjects(), std::vector<std::string>{});
    EXPECT_EQ(gdi::liveObjects(), std::vector<std::string>{});
}

} // namespace
