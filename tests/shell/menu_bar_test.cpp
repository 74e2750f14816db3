// The menu bar, its drop-downs and the menus behind them.
#include "controls/run_dialog.h"
#include "user/menu.h"

namespace {

using Kind = host::Event::Kind;

struct MenuBar : ProgramTest
{
    SHMENUBARINFO info{32, owner, 0, 102, {}, 0, 0, {}};
    Log popups;

    void SetUp() override
    {
        ASSERT_TRUE(SHCreateMenuBar(&info));
        recorder.noted = {WM_COMMAND, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_ACTIVATE, WM_KEYDOWN};
        recorder.when(WM_INITMENUPOPUP, [&](HWND, WPARAM dropDown, LPARAM position) {
            EXPECT_EQ(GetSubMenu(menu(), static_cast<int>(position)).value, dropDown);
            EXPECT_FALSE(inspect::menuOpen());
            popups.push_back(std::to_string(position));
        });
    }
    HMENU menu() const
    {
        return {static_cast<std::uint32_t>(SendMessageW(info.hwndMB, SHCMBM_GETMENU, 0, 0))};
    }
    void expectOpen(bool open)
    {
        host.act([=] { EXPECT_EQ(inspect::menuOpen(), open); });
    }
};

TEST_F(MenuBar, ItemsAreFoundGrayedAndReported)
{
    EXPECT_EQ(EnableMenuItem(menu(), 101, MF_GRAYED), static_cast<int>(MF_ENABLED));
    EXPECT_EQ(EnableMenuItem(menu(), 102, MF_ENABLED), static_cast<int>(MF_GRAYED));
    EXPECT_EQ(EnableMenuItem(menu(), 999, MF_GRAYED), -1);
    EXPECT_EQ(SendMessageW(info.hwndMB, SHCMBM_GETSUBMENU, 0, 2),
              static_cast<LRESULT>(GetSubMenu(menu(), 1).value));
    SHMENUBARINFO malformed{32, owner, 0, 103, {}, 0, 0, {}}; // no drop-down 7
    EXPECT_FALSE(SHCreateMenuBar(&malformed));
    EXPECT_EQ(user::liveMenus(), 1U);
    DestroyWindow(info.hwndMB);
    EXPECT_EQ(user::liveMenus(), 0U);
}

TEST_F(MenuBar, ItemsAreChosenByTappingOrDragging)
{
    host.tapAt(inspect::menuBarButton, 0);
    expectOpen(true);
    host.tapAt(inspect::openMenuItem, 103);
    expectOpen(false);
    EXPECT_EQ(run(), Log{"A:command 103"});
    EXPECT_EQ(popups, Log{"0"});

    host.act([&] {
        const auto [x, y] = inspect::menuBarButton(1).value().centre;
        host.stylus(Kind::StylusDown, x, y);
    });
    host.act([&] {
        const auto [x, y] = inspect::openMenuItem(201).value().centre;
        host.stylus(Kind::StylusMove, x, y);
        host.stylus(Kind::StylusUp, x, y);
    });
    EXPECT_EQ(run(), Log{"A:command 201"});
    EXPECT_EQ(popups, (Log{"0", "1"}));
}

TEST_F(MenuBar, GrayedItemsDoNothingAndATapElsewhereIsSwallowed)
{
    host.tapAt(inspect::menuBarButton, 0);
    host.tapAt(inspect::openMenuItem, 102);
    expectOpen(true);
    host.act([&] { EXPECT_FALSE(inspect::openMenuItem(102)->enabled); });
    host.tap(200, 100);
    expectOpen(false);
    EXPECT_EQ(run(), Log{});
    host.tap(200, 100);
    EXPECT_EQ(run().size(), 2U);

    host.tapAt(inspect::menuBarButton, 0);
    host.tapAt(inspect::menuBarButton, 1); // the other button opens the other drop-down
    host.act([] { EXPECT_TRUE(inspect::openMenuItem(201)); });
    host.tapAt(inspect::menuBarButton, 1); // its own closes it
    expectOpen(false);
    EXPECT_EQ(run(), Log{});
}

TEST_F(MenuBar, KeysMoveChooseAndDismiss)
{
    const std::pair<std::vector<int>, Log> cases[] = {
        {{VK_DOWN, VK_RETURN}, {"A:command 101"}},
        {{VK_DOWN, VK_DOWN, VK_RETURN}, {"A:command 103"}}, // past the grayed one and the line
        {{VK_UP, VK_RETURN}, {"A:command 103"}},
        {{VK_DOWN, VK_DOWN, VK_DOWN, VK_RETURN}, {"A:command 101"}},
        {{VK_RIGHT, VK_RETURN}, {"A:command 201"}},
        {{VK_LEFT, VK_LEFT, VK_RETURN}, {"A:command 101"}},
        {{'A', VK_ESCAPE}, {}},
    };
    for (const auto &[keys, log] : cases) {
        host.tapAt(inspect::menuBarButton, 0);
        expectOpen(true);
        for (const int key : keys) {
            host.press(key);
        }
        expectOpen(false);
        EXPECT_EQ(run(), log) << keys.size();
    }
}

TEST_F(MenuBar, TimersRunBehindAnOpenDropDownWhichADialogCloses)
{
    int ticks = 0;
    recorder.when(WM_TIMER, [&](HWND, WPARAM, LPARAM) {
        if (++ticks == 3) {
            EXPECT_TRUE(inspect::menuOpen());
            expectOpen(false);
            end(1);
            EXPECT_EQ(runDialog(8, owner), 1);
        }
    });
    SetTimer(owner, 1, 25, nullptr);
    host.tapAt(inspect::menuBarButton, 0);
    run(100);
    EXPECT_EQ(ticks, 7); // 100 ms after the third
    EXPECT_FALSE(inspect::menuOpen());
}

TEST_F(MenuBar, IsSeenWithItsWindowAndNotCoveringAPage)
{
    const auto bar = [&] { return IsWindowVisible(info.hwndMB) != FALSE; };
    EXPECT_TRUE(bar());
    host.act([&] {
        EXPECT_TRUE(bar()); // beside a small dialog, but with no use
        EXPECT_FALSE(inspect::menuBarButton(0)->enabled);
        host.tap(20, 310);
        expectOpen(false);
        end();
    });
    runDialog(8, owner);
    host.act([&] {
        EXPECT_FALSE(bar());
        host.act([&] { EXPECT_FALSE(bar()); }); // nor beside a box upon the page
        host.press(VK_RETURN);
        end();
        MessageBoxW(GetActiveWindow(), u"", u"", MB_OK);
    });
    runDialog(9, owner, beFullScreen);
    EXPECT_TRUE(bar());
    recorder.window('B', {0, 26, 100, 100});
    EXPECT_FALSE(bar());
}

TEST_F(MenuBar, QuittingEndsTheLoopOfADropDown)
{
    host.tapAt(inspect::menuBarButton, 0);
    host.act([&] { DestroyWindow(owner); });
    host.act([] { PostQuitMessage(0); });
    run();
    EXPECT_FALSE(inspect::menuOpen());
    EXPECT_FALSE(IsWindow(info.hwndMB));
}

} // namespace
