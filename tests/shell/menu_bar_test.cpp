// The menu bar, its drop-downs and the menus behind them.
#include "controls/run_dialog.h"
#include "user/menu.h"

namespace {

struct MenuBar : ProgramTest
{
    SHMENUBARINFO info{32, owner, 0, 102, {}, 0, 0, {}};

    void SetUp() override
    {
        ASSERT_TRUE(SHCreateMenuBar(&info));
        recorder.when(WM_INITMENUPOPUP, [&](HWND, WPARAM dropDown, LPARAM position) {
            EXPECT_EQ(GetSubMenu(menu(), static_cast<int>(position)).value, dropDown);
            EXPECT_FALSE(inspect::menuOpen());
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
    EXPECT_TRUE(IsWindowVisible(info.hwndMB));
    recorder.window('B', {0, 26, 100, 100});
    EXPECT_FALSE(IsWindowVisible(info.hwndMB)) << "it is seen with its window";
    DestroyWindow(info.hwndMB);
    EXPECT_EQ(user::liveMenus(), 0U);
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
