// Activation, focus and what happens when the program leaves the front.
#include <gtest/gtest.h>

#include "user/recorder.h"

namespace {

using Log = std::vector<std::string>;
using Kind = host::Event::Kind;

const std::set<UINT> attentionMessages = {WM_ACTIVATE, WM_SETFOCUS, WM_KILLFOCUS};
constexpr RECT left{0, 50, 100, 150};
constexpr RECT right{100, 50, 200, 150};

void give(FakeHost &host, Kind kind)
{
    host::Event event;
    event.kind = kind;
    host.give(event);
}

TEST(Activation, ANewWindowIsToldStepByStep)
{
    Recorder recorder;
    recorder.noted = {WM_CREATE,   WM_SIZE,  WM_MOVE,    WM_SHOWWINDOW, WM_ACTIVATE,
                      WM_SETFOCUS, WM_PAINT, WM_DESTROY, WM_NCDESTROY,  WM_KILLFOCUS};
    const HWND window = recorder.window('A', left);
    recorder.host.run();
    EXPECT_EQ(recorder.takeLog(), (Log{"A:create", "A:size 100,100", "A:move 0,50", "A:show 1",
                                       "A:activate 1 -", "A:setfocus -", "A:paint"}));
    DestroyWindow(window);
    EXPECT_EQ(recorder.takeLog(),
              (Log{"A:show 0", "A:activate 0 -", "A:killfocus -", "A:destroy", "A:gone"}));
    EXPECT_FALSE(GetActiveWindow());
    EXPECT_FALSE(GetFocus());
}

TEST(Activation, MovesFromWindowToWindow)
{
    Recorder recorder;
    const HWND a = recorder.window('A', left);
    const HWND b = recorder.window('B', right);
    recorder.noted = attentionMessages;
    EXPECT_EQ(SetActiveWindow(a), b);
    EXPECT_EQ(recorder.takeLog(),
              (Log{"B:activate 0 A", "A:activate 1 B", "B:killfocus A", "A:setfocus B"}));
    EXPECT_EQ(SetActiveWindow(a), a);
    EXPECT_EQ(recorder.takeLog(), Log{});

    recorder.host.tap(150, 60);
    recorder.host.run();
    EXPECT_EQ(recorder.takeLog(),
              (Log{"A:activate 0 B", "B:activate 2 A", "A:killfocus B", "B:setfocus A"}));
    EXPECT_EQ(GetForegroundWindow(), b);
}

TEST(Activation, GivesTheFocusEvenWhenTheProcedureDoesNot)
{
    Recorder recorder;
    recorder.window('A', left);
    recorder.handler = [&](HWND, UINT message, WPARAM, LPARAM) {
        return message == WM_ACTIVATE ? std::optional<LRESULT>(0) : std::nullopt;
    };
    const HWND b = recorder.window('B', right);
    EXPECT_EQ(GetFocus(), b);
}

TEST(Activation, InsideADeactivationWins)
{
    Recorder recorder;
    const HWND a = recorder.window('A', left);
    const HWND b = recorder.window('B', right);
    const HWND c = recorder.window('C', {0, 150, 100, 200});
    recorder.handler = [&](HWND window, UINT message, WPARAM wParam, LPARAM) {
        if (window == c && message == WM_ACTIVATE && wParam == WA_INACTIVE) {
            SetActiveWindow(b);
        }
        return std::optional<LRESULT>();
    };
    SetActiveWindow(a);
    EXPECT_EQ(GetActiveWindow(), b);
    EXPECT_EQ(GetFocus(), b);
}

TEST(Activation, PassesBarsBy)
{
    Recorder recorder;
    const HWND a = recorder.window('A', left);
    const HWND bar = recorder.window('B', right, {}, WS_VISIBLE, WS_EX_TOPMOST | WS_EX_NOACTIVATE);
    const HWND inBar = recorder.window('C', {0, 0, 10, 10}, bar, WS_CHILD | WS_VISIBLE);
    recorder.noted = {WM_LBUTTONDOWN};
    recorder.host.stylus(Kind::StylusDown, 105, 55);
    recorder.host.run();
    SetActiveWindow(bar);
    SetFocus(inBar);
    EXPECT_EQ(recorder.takeLog(), (Log{"C:down 5,5"}));
    EXPECT_EQ(GetActiveWindow(), a);
    EXPECT_EQ(GetFocus(), a);
}

TEST(Activation, FocusOfAControlActivatesItsWindowAndPassesOnWhenItHides)
{
    Recorder recorder;
    const HWND a = recorder.window('A', left);
    const HWND control = recorder.window('C', {10, 10, 20, 20}, a, WS_CHILD | WS_VISIBLE);
    const HWND b = recorder.window('B', right);
    recorder.noted = attentionMessages;
    EXPECT_EQ(SetFocus(control), b);
    EXPECT_EQ(recorder.takeLog(), (Log{"B:activate 0 A", "A:activate 1 B", "B:killfocus A",
                                       "A:setfocus B", "A:killfocus C", "C:setfocus A"}));
    ShowWindow(control, SW_HIDE);
    EXPECT_EQ(GetFocus(), a);
    EnableWindow(a, FALSE);
    EXPECT_FALSE(GetFocus());
    EXPECT_FALSE(SetFocus(control));
}

TEST(Activation, GoesToTheOwnerOfAWindowThatCloses)
{
    Recorder recorder;
    const HWND owner = recorder.window('O', left);
    const HWND other = recorder.window('X', right);
    const HWND dialog = recorder.window('D', {0, 100, 50, 120}, owner, WS_POPUP | WS_VISIBLE);
    SetActiveWindow(other);
    SetForegroundWindow({owner.value | 1U}); // of a window and those it owns, the topmost
    EXPECT_EQ(GetActiveWindow(), dialog);
    DestroyWindow(dialog);
    EXPECT_EQ(GetActiveWindow(), owner);
    DestroyWindow(owner);
    EXPECT_EQ(GetActiveWindow(), other);
}

TEST(Background, TakesActivationAndKeysAwayAndGivesThemBack)
{
    Recorder recorder;
    const HWND a = recorder.window('A', left);
    recorder.noted = {WM_ACTIVATE, WM_SETFOCUS, WM_KILLFOCUS, WM_SIZE,
                      WM_KEYDOWN,  WM_KEYUP,    WM_CHAR};
    recorder.host.key(VK_UP, true);
    give(recorder.host, Kind::Minimize);
    recorder.host.key(VK_LEFT, true);
    recorder.host.type(u"x");
    recorder.host.act([&] {
        EXPECT_EQ(GetAsyncKeyState(VK_UP), 0);
        EXPECT_EQ(GetAsyncKeyState(VK_LEFT), 0);
        EXPECT_FALSE(GetForegroundWindow());
    });
    give(recorder.host, Kind::Restore);
    recorder.host.key(VK_UP, false); // was released when the program left the front
    recorder.host.run();
    EXPECT_EQ(recorder.takeLog(),
              (Log{"A:keydown 38", "A:activate 0 -", "A:killfocus -", "A:size minimized",
                   "A:size 100,100", "A:activate 1 -", "A:setfocus -"}));
    EXPECT_EQ(GetActiveWindow(), a);
}

TEST(Background, AWindowThatOpensAndClosesThereLeavesTheProgramThere)
{
    Recorder recorder;
    const HWND a = recorder.window('A', left);
    give(recorder.host, Kind::Background);
    recorder.host.run();
    const HWND box = recorder.window('B', right);
    EXPECT_EQ(GetActiveWindow(), box);
    DestroyWindow(box);
    EXPECT_FALSE(GetActiveWindow());
    give(recorder.host, Kind::Foreground);
    recorder.host.run();
    EXPECT_EQ(GetActiveWindow(), a);

    EnableWindow(a, FALSE); // then the topmost that is enabled is activated
    const HWND c = recorder.window('C', right);
    SetActiveWindow(a);
    give(recorder.host, Kind::Background);
    give(recorder.host, Kind::Foreground);
    recorder.host.run();
    EXPECT_EQ(GetActiveWindow(), c);
}

TEST(Background, TheProgramIsBroughtToTheFrontByItsHost)
{
    Recorder recorder;
    const HWND a = recorder.window('A', left);
    SetForegroundWindow(a);
    EXPECT_EQ(recorder.host.raised, 0);
    give(recorder.host, Kind::Background);
    recorder.host.run();
    SetForegroundWindow(a);
    EXPECT_EQ(recorder.host.raised, 1);

    EXPECT_EQ(FindWindowW(u"test", u"a window"), a);
    EXPECT_FALSE(FindWindowW(u"TEST", u"another"));
    recorder.host.otherRuns = true;
    const HWND elsewhere = FindWindowW(u"ELSE", u"another");
    EXPECT_TRUE(SetForegroundWindow({elsewhere.value | 1U}));
    EXPECT_EQ(recorder.host.otherRaised, 1);
    EXPECT_FALSE(IsWindow(elsewhere));
}

} // namespace
