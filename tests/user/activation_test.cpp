// Activation, focus and what happens when the program leaves the front.
#include "user/program_test.h"

namespace {

using Kind = host::Event::Kind;

constexpr RECT left{0, 50, 100, 150};
constexpr RECT right{100, 50, 200, 150};

/// Beside each other A and B, which has been activated.
struct Activation : HandheldTest
{
    Activation() { recorder.noted = {WM_ACTIVATE, WM_SETFOCUS, WM_KILLFOCUS, WM_LBUTTONDOWN}; }

    HWND a = recorder.window('A', left);
    HWND b = recorder.window('B', right);
};

TEST_F(Activation, MovesFromWindowToWindow)
{
    EXPECT_EQ(SetActiveWindow(a), b);
    EXPECT_EQ(recorder.takeLog(),
              (Log{"B:activate 0 A", "A:activate 1 B", "B:killfocus A", "A:setfocus B"}));
    EXPECT_EQ(SetActiveWindow(a), a);
    EXPECT_EQ(recorder.takeLog(), Log{});

    host.tap(150, 60);
    EXPECT_EQ(run(), (Log{"A:activate 0 B", "B:activate 2 A", "A:killfocus B", "B:setfocus A",
                          "B:down 50,10"}));
    EXPECT_EQ(GetActiveWindow(), b);
}

TEST_F(Activation, GivesTheFocusEvenWhenTheProcedureDoesNot)
{
    recorder.handler = [&](HWND, UINT message, WPARAM, LPARAM) {
        return message == WM_ACTIVATE ? std::optional<LRESULT>(0) : std::nullopt;
    };
    SetActiveWindow(a);
    EXPECT_EQ(GetFocus(), a);
}

TEST_F(Activation, InsideADeactivationWins)
{
    const HWND c = recorder.window('C', {0, 150, 100, 200});
    recorder.when(WM_ACTIVATE, [&](HWND window, WPARAM how, LPARAM) {
        if (window == c && how == WA_INACTIVE) {
            SetActiveWindow(b);
        }
    });
    SetActiveWindow(a);
    EXPECT_EQ(std::pair(GetActiveWindow(), GetFocus()), std::pair(b, b));
}

TEST_F(Activation, PassesBarsBy)
{
    const HWND bar =
        recorder.window('T', {0, 26, 240, 50}, {}, WS_VISIBLE, WS_EX_TOPMOST | WS_EX_NOACTIVATE);
    const HWND inBar = recorder.window('C', {0, 0, 10, 10}, bar, WS_CHILD | WS_VISIBLE);
    host.stylus(Kind::StylusDown, 5, 31);
    host.run();
    SetActiveWindow(bar);
    SetFocus(inBar);
    EXPECT_EQ(recorder.takeLog(), (Log{"C:down 5,5"}));
    EXPECT_EQ(std::pair(GetActiveWindow(), GetFocus()), std::pair(b, b));
}

TEST_F(Activation, FocusOfAControlActivatesItsWindowAndPassesOnWhenItHides)
{
    const HWND control = recorder.window('C', {10, 10, 20, 20}, a, WS_CHILD | WS_VISIBLE);
    EXPECT_EQ(SetFocus(control), b);
    EXPECT_EQ(recorder.takeLog(), (Log{"B:activate 0 A", "A:activate 1 B", "B:killfocus A",
                                       "A:setfocus B", "A:killfocus C", "C:setfocus A"}));
    ShowWindow(control, SW_HIDE);
    EXPECT_EQ(GetFocus(), a);
    EnableWindow(a, FALSE);
    EXPECT_FALSE(GetFocus());
    EXPECT_FALSE(SetFocus(control));
}

TEST_F(Activation, GoesToTheOwnerOfAWindowThatCloses)
{
    const HWND dialog = recorder.window('D', {0, 100, 50, 120}, a, WS_POPUP | WS_VISIBLE);
    SetActiveWindow(b);
    SetForegroundWindow({a.value | 1U}); // of a window and those it owns, the topmost
    EXPECT_EQ(GetActiveWindow(), dialog);
    DestroyWindow(dialog);
    EXPECT_EQ(GetActiveWindow(), a);
    DestroyWindow(a);
    EXPECT_EQ(GetActiveWindow(), b);
}

/// A program of one window, A.
struct OneWindow : HandheldTest
{
    OneWindow()
    {
        recorder.noted = {WM_CREATE,   WM_SIZE,  WM_MOVE,    WM_SHOWWINDOW, WM_ACTIVATE,
                          WM_SETFOCUS, WM_PAINT, WM_DESTROY, WM_NCDESTROY,  WM_KILLFOCUS,
                          WM_KEYDOWN,  WM_KEYUP, WM_CHAR};
        a = recorder.window('A', left);
        host.run();
    }

    HWND a;
};

TEST_F(OneWindow, LearnsOfItsLifeStepByStep)
{
    EXPECT_EQ(recorder.takeLog(), (Log{"A:create", "A:size 100,100", "A:move 0,50", "A:show 1",
                                       "A:activate 1 -", "A:setfocus -", "A:paint"}));
    DestroyWindow(a);
    EXPECT_EQ(recorder.takeLog(),
              (Log{"A:show 0", "A:activate 0 -", "A:killfocus -", "A:destroy", "A:gone"}));
    EXPECT_FALSE(GetActiveWindow() || GetFocus());
}

TEST_F(OneWindow, LosesActivationAndKeysInTheBackgroundAndGetsThemBack)
{
    recorder.takeLog();
    host.key(VK_UP, true);
    host.give({.kind = Kind::Minimize});
    host.key(VK_LEFT, true);
    host.type(u"x");
    host.act([&] {
        EXPECT_FALSE(GetAsyncKeyState(VK_UP) || GetAsyncKeyState(VK_LEFT) || GetActiveWindow());
    });
    host.give({.kind = Kind::Restore});
    host.key(VK_UP, false); // was released when the program left the front
    EXPECT_EQ(run(), (Log{"A:keydown 38", "A:activate 0 -", "A:killfocus -", "A:size minimized",
                          "A:size 100,100", "A:activate 1 -", "A:setfocus -"}));
    EXPECT_EQ(GetActiveWindow(), a);
}

TEST_F(OneWindow, StaysInTheBackgroundWhileAnotherOpensAndCloses)
{
    host.give({.kind = Kind::Background});
    host.run();
    const HWND box = recorder.window('B', right);
    EXPECT_EQ(GetActiveWindow(), box);
    DestroyWindow(box);
    EXPECT_FALSE(GetActiveWindow());
    host.give({.kind = Kind::Foreground});
    host.run();
    EXPECT_EQ(GetActiveWindow(), a);

    EnableWindow(a, FALSE); // then the topmost that is enabled is activated
    const HWND c = recorder.window('C', right);
    SetActiveWindow(a);
    host.give({.kind = Kind::Background});
    host.give({.kind = Kind::Foreground});
    host.run();
    EXPECT_EQ(GetActiveWindow(), c);
}

TEST_F(OneWindow, IsBroughtToTheFrontByItsHost)
{
    SetForegroundWindow(a);
    EXPECT_EQ(host.raised, 0);
    host.give({.kind = Kind::Background});
    host.run();
    SetForegroundWindow(a);
    EXPECT_EQ(host.raised, 1);

    EXPECT_EQ(FindWindowW(u"test", u"a window"), a);
    EXPECT_FALSE(FindWindowW(u"TEST", u"another"));
}

} // namespace
