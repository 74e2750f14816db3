// Keys, the stylus, accelerators, and what the system asks of the program.
#include "gx.h"
#include "user/program_test.h"

namespace {

using Kind = host::Event::Kind;
constexpr DWORD child = WS_CHILD | WS_VISIBLE;

struct Input : HandheldTest
{
    HWND a = recorder.window('A', {0, 50, 100, 150});
};

TEST_F(Input, KeysArePolledWithTheirPressesRemembered)
{
    host.key(VK_LEFT, true);
    host.act([] {
        EXPECT_EQ(GetAsyncKeyState(VK_LEFT), static_cast<SHORT>(0x8001));
        EXPECT_EQ(GetAsyncKeyState(VK_LEFT), static_cast<SHORT>(0x8000));
        EXPECT_EQ(GetKeyState(VK_LEFT), static_cast<SHORT>(0x8000));
    });
    host.key(VK_LEFT, true); // repeated by holding it: not a press
    host.act([] { EXPECT_EQ(GetAsyncKeyState(VK_LEFT), static_cast<SHORT>(0x8000)); });
    host.key(VK_LEFT, false);
    host.key(VK_RIGHT, true);
    host.key(VK_RIGHT, false);
    host.act([] {
        EXPECT_EQ(GetAsyncKeyState(VK_LEFT), 0);
        EXPECT_EQ(GetAsyncKeyState(VK_RIGHT), 1);
        EXPECT_EQ(GetAsyncKeyState(VK_RIGHT), 0);
        for (const int none : {0, -1, 256, 1 << 20}) {
            EXPECT_EQ(GetAsyncKeyState(none), 0);
        }
    });
    host.run();
}

TEST_F(Input, KeysGoToTheFocusAndApplicationButtonsOnlyWhenHeld)
{
    const HWND control = recorder.window('C', {0, 0, 10, 10}, a, child);
    recorder.noted = {WM_KEYDOWN, WM_KEYUP};
    host.key(VK_APP1, true);
    host.key(VK_APP1, false);
    host.act([&] {
        EXPECT_EQ(GetAsyncKeyState(VK_APP1), 0);
        GXOpenInput();
        SetFocus(control);
    });
    host.key(VK_APP1, true);
    host.act([&] {
        GXCloseInput();
        EXPECT_EQ(GetAsyncKeyState(VK_APP1), 0);
        SetFocus({}); // then keys go to the active window
    });
    host.key(VK_APP1, false);
    host.key(VK_DOWN, true);
    host.act([&] { EnableWindow(a, FALSE); });
    host.key(VK_DOWN, false);
    EXPECT_EQ(run(), (Log{"C:keydown 193", "A:keydown 40"}));
}

TEST_F(Input, TheStylusReachesWhatIsUnderItUnlessThatIsDisabled)
{
    const HWND control = recorder.window('C', {10, 10, 20, 20}, a, child);
    recorder.window('B', {100, 50, 200, 150});
    recorder.noted = {WM_LBUTTONDOWN, WM_MOUSEMOVE, WM_LBUTTONUP, WM_ACTIVATE};
    host.stylus(Kind::StylusDown, 12, 63);
    host.stylus(Kind::StylusMove, 50, 100);
    host.stylus(Kind::StylusUp, 150, 100); // lifted over another window
    EXPECT_EQ(run(), (Log{"B:activate 0 A", "A:activate 2 B", "C:down 2,3", "A:drag 50,50",
                          "B:up 50,50"}));
    EnableWindow(control, FALSE);
    host.tap(12, 63);
    EnableWindow(a, FALSE);
    host.tap(50, 100);
    host.tap(230, 200); // no window there
    EXPECT_EQ(run(), Log{});
}

TEST_F(Input, TheStylusIsCapturedUntilItIsLifted)
{
    const HWND b = recorder.window('B', {100, 50, 200, 150});
    recorder.noted = {WM_LBUTTONDOWN, WM_MOUSEMOVE, WM_LBUTTONUP, WM_CAPTURECHANGED};
    const auto capture = [](HWND window, WPARAM, LPARAM) { SetCapture(window); };
    recorder.when(WM_LBUTTONDOWN, capture);
    host.stylus(Kind::StylusDown, 150, 100);
    host.stylus(Kind::StylusMove, 90, 40);
    host.stylus(Kind::StylusUp, 90, 40);
    EXPECT_EQ(run(), (Log{"B:down 50,50", "B:drag -10,-10", "B:up -10,-10", "B:uncapt"}));
    EXPECT_FALSE(GetCapture());

    recorder.when(WM_LBUTTONUP, capture);
    host.tap(150, 100);
    host.tap(10, 100); // still captured
    EXPECT_EQ(run(), (Log{"B:down 50,50", "B:up 50,50", "B:down -90,50", "B:up -90,50"}));
    EXPECT_EQ(SetCapture(a), b);
    EXPECT_EQ(recorder.takeLog(), (Log{"B:uncapt"}));
    EnableWindow(a, FALSE);
    EXPECT_FALSE(GetCapture());

    const HWND control = recorder.window('C', {10, 10, 20, 20}, b, child);
    SetCapture(control);
    EnableWindow(b, FALSE); // a question comes up while the stylus is on a control
    EXPECT_FALSE(GetCapture());
}

TEST_F(Input, AcceleratorsSendTheirCommands)
{
    EXPECT_FALSE(LoadAcceleratorsW({}, MAKEINTRESOURCEW(4)));
    const HACCEL accelerators = LoadAcceleratorsW({}, MAKEINTRESOURCEW(3));
    recorder.noted = {WM_COMMAND};

    struct Case
    {
        host::Event event;
        UINT message;
        WPARAM command; ///< 0: none
    };
    for (const Case &each : {Case{{.key = 'Q', .control = true}, WM_KEYDOWN, 1},
                             {{.key = 'Q'}, WM_KEYDOWN, 0},
                             {{.key = 'Q', .control = true, .shift = true}, WM_KEYDOWN, 0},
                             {{.key = 'Q', .control = true}, WM_KEYUP, 0},
                             {{.key = VK_F4}, WM_KEYDOWN, 77},
                             {{.key = VK_F4, .control = true}, WM_KEYDOWN, 0}})
    {
        host.give(each.event);
        MSG message{};
        while (message.message != WM_KEYDOWN) {
            GetMessageW(&message, {}, 0, 0);
            DispatchMessageW(&message);
        }
        message.message = each.message;
        EXPECT_EQ(TranslateAcceleratorW(a, accelerators, &message), each.command ? 1 : 0);
        const Log expected =
            each.command ? Log{"A:command " + std::to_string(each.command | 0x10000)} : Log{};
        EXPECT_EQ(recorder.takeLog(), expected);
    }
    MSG message{a, WM_KEYDOWN, VK_F4, 0, 0, {}};
    EXPECT_EQ(TranslateAcceleratorW(a, {}, &message), 0);
    EnableWindow(a, FALSE);
    EXPECT_EQ(TranslateAcceleratorW(a, accelerators, &message), 0);
}

TEST_F(Input, OfTheSystemIsForTheMainWindowAlsoBehindADialog)
{
    recorder.window('D', {0, 60, 50, 80}, a, WS_POPUP | WS_VISIBLE);
    EnableWindow(a, FALSE);
    recorder.noted = {WM_HELP, WM_HIBERNATE, WM_CLOSE, WM_DESTROY};
    for (const Kind kind : {Kind::Help, Kind::Hibernate, Kind::Close}) {
        host.give({.kind = kind});
    }
    EXPECT_EQ(run(), (Log{"D:help", "A:help", "A:hibernate", "A:close", "D:destroy", "A:destroy"}));
    host.give({.kind = Kind::Close});
    MSG message{};
    EXPECT_EQ(GetMessageW(&message, {}, 0, 0), 0); // without a window: the end
}

} // namespace
