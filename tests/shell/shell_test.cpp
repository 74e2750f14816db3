// The OK button of the title bar, full-screen pages, and the input panel.
#include <algorithm>

#include "controls/run_dialog.h"

namespace {

struct Shell : ProgramTest
{
    static bool panelIsUp()
    {
        return std::ranges::any_of(inspect::windows(), [](const inspect::WindowView &view) {
            return view.className == u"SoftKeyboard" && !view.hidden;
        });
    }
};

TEST_F(Shell, InputPanelTypesWhereTheFocusIsAndComesAndGoesWithIt)
{
    SHInitExtraControls();
    SHInitExtraControls();
    const auto row = [](int index) { return 294 - 88 + 1 + index * 17 + 8; };
    host.act([] { EXPECT_TRUE(panelIsUp()); });
    host.tap(50, row(1)); // q, as the first letter a capital
    host.tap(50, row(1));
    host.tap(10, row(3)); // Shift
    host.tap(50, row(1));
    host.tap(10, row(0));  // 1
    host.tap(120, row(4)); // space
    host.tap(10, row(0));
    host.tap(230, row(0)); // Backspace
    host.type(u"x");       // the real keyboard goes on working; a new word
    host.act([&] {
        EXPECT_EQ(textOf(10), u"QqQ1 X");
        SetFocus(GetDlgItem(GetActiveWindow(), IDOK));
        EXPECT_FALSE(panelIsUp());
        SetFocus(GetDlgItem(GetActiveWindow(), 10));
        EXPECT_TRUE(panelIsUp());
    });
    host.tap(230, row(2)); // Enter
    EXPECT_EQ(runDialog(7, owner, endByCommand), IDOK);
    EXPECT_FALSE(panelIsUp());
    recorder.noted = {WM_LBUTTONUP};
    EXPECT_EQ(run(), Log{}) << "what is below gets nothing of the last tap";

    SHSipPreference(owner, SIP_UP);
    EXPECT_TRUE(panelIsUp());
    SetFocus(owner);
    EXPECT_TRUE(panelIsUp());
    SHSipPreference(owner, SIP_DOWN);
    EXPECT_FALSE(panelIsUp());
}

TEST_F(Shell, ActivationGivesTheFocusBack)
{
    const HWND child = recorder.window('C', {0, 0, 50, 50}, owner, WS_CHILD | WS_VISIBLE);
    SHACTIVATEINFO info{sizeof info, {}, 0};
    recorder.handler = [&](HWND window, UINT message, WPARAM wParam,
                           LPARAM lParam) -> std::optional<LRESULT> {
        if (window != owner || message != WM_ACTIVATE) {
            return std::nullopt;
        }
        return SHHandleWMActivate(window, wParam, lParam, &info, 0);
    };
    SetFocus(child);
    const HWND other = recorder.window('B', {0, 26, 100, 100});
    EXPECT_EQ(GetFocus(), other);
    SetActiveWindow(owner);
    EXPECT_EQ(GetFocus(), child);
    DestroyWindow(child);
    SetActiveWindow(other);
    SetActiveWindow(owner);
    EXPECT_EQ(GetFocus(), owner);
}

} // namespace
