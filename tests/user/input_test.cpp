// Keys, the stylus, accelerators, and what the system asks of the program.
#include <gtest/gtest.h>

#include "gx.h"
#include "support/resource_image.h"
#include "user/recorder.h"

namespace {

using Log = std::vector<std::string>;
using Kind = host::Event::Kind;
constexpr DWORD child = WS_CHILD | WS_VISIBLE;

TEST(Keys, ArePolledWithTheirPressesRemembered)
{
    Recorder recorder;
    recorder.window('A', {0, 50, 100, 100});
    recorder.host.key(VK_LEFT, true);
    recorder.host.act([] {
        EXPECT_EQ(GetAsyncKeyState(VK_LEFT), static_cast<SHORT>(0x8001));
        EXPECT_EQ(GetAsyncKeyState(VK_LEFT), static_cast<SHORT>(0x8000));
        EXPECT_EQ(GetKeyState(VK_LEFT), static_cast<SHORT>(0x8000));
    });
    recorder.host.key(VK_LEFT, true); // repeated by holding it: not a press
    recorder.host.act([] { EXPECT_EQ(GetAsyncKeyState(VK_LEFT), static_cast<SHORT>(0x8000)); });
    recorder.host.key(VK_LEFT, false);
    recorder.host.key(VK_RIGHT, true);
    recorder.host.key(VK_RIGHT, false);
    recorder.host.act([] {
        EXPECT_EQ(GetAsyncKeyState(VK_LEFT), 0);
        EXPECT_EQ(GetAsyncKeyState(VK_RIGHT), 1);
        EXPECT_EQ(GetAsyncKeyState(VK_RIGHT), 0);
        for (const int none : {0, -1, 256, 1 << 20}) {
            EXPECT_EQ(GetAsyncKeyState(none), 0);
        }
    });
    recorder.host.run();
}

TEST(Keys, GoToTheFocusAndApplicationButtonsOnlyWhenHeld)
{
    Recorder recorder;
    const HWND window = recorder.window('A', {0, 50, 100, 100});
    const HWND control = recorder.window('C', {0, 0, 10, 10}, window, child);
    recorder.noted = {WM_KEYDOWN, WM_KEYUP};
    recorder.host.key(VK_APP1, true);
    recorder.host.key(VK_APP1, false);
    recorder.host.act([&] {
        EXPECT_EQ(GetAsyncKeyState(VK_APP1), 0);
        GXOpenInput();
        SetFocus(control);
    });
    recorder.host.key(VK_APP1, true);
    recorder.host.act([&] {
        GXCloseInput();
        EXPECT_EQ(GetAsyncKeyState(VK_APP1), 0);
        SetFocus({}); // then keys go to the active window
    });
    recorder.host.key(VK_APP1, false);
    recorder.host.key(VK_DOWN, true);
    recorder.host.act([&] { EnableWindow(window, FALSE); });
    recorder.host.key(VK_DOWN, false);
    recorder.host.run();
    EXPECT_EQ(recorder.takeLog(), (Log{"C:keydown 193", "A:keydown 40"}));
}

TEST(Stylus, ReachesWhatIsUnderItUnlessThatIsDisabled)
{
    Recorder recorder;
    const HWND a = recorder.window('A', {0, 50, 100, 150});
    const HWND control = recorder.window('C', {10, 10, 20, 20}, a, child);
    recorder.window('B', {100, 50, 200, 150});
    recorder.noted = {WM_LBUTTONDOWN, WM_MOUSEMOVE, WM_LBUTTONUP, WM_ACTIVATE};
    recorder.host.stylus(Kind::StylusDown, 12, 63);
    recorder.host.stylus(Kind::StylusMove, 50, 100);
    recorder.host.stylus(Kind::StylusUp, 150, 100); // lifted over another window
    recorder.host.run();
    EXPECT_EQ(recorder.takeLog(), (Log{"B:activate 0 A", "A:activate 2 B", "C:down 2,3",
                                       "A:drag 50,50", "B:up 50,50"}));
    EnableWindow(control, FALSE);
    recorder.host.tap(12, 63);
    EnableWindow(a, FALSE);
    recorder.host.tap(50, 100);
    recorder.host.tap(230, 200); // no window there
    recorder.host.run();
    EXPECT_EQ(recorder.takeLog(), Log{});
}

TEST(Stylus, IsCapturedUntilItIsLifted)
{
    Recorder recorder;
    const HWND a = recorder.window('A', {0, 50, 100, 150});
    const HWND b = recorder.window('B', {100, 50, 200, 150});
    recorder.noted = {WM_LBUTTONDOWN, WM_MOUSEMOVE, WM_LBUTTONUP, WM_CAPTURECHANGED};
    bool captureAnew = false;
    recorder.handler = [&](HWND window, UINT message, WPARAM, LPARAM) {
        if (message == WM_LBUTTONDOWN || (message == WM_LBUTTONUP && captureAnew)) {
            SetCapture(window);
        }
        return std::optional<LRESULT>();
    };
    recorder.host.stylus(Kind::StylusDown, 150, 100);
    recorder.host.stylus(Kind::StylusMove, 90, 40);
    recorder.host.stylus(Kind::StylusUp, 90, 40);
    recorder.host.run();
    EXPECT_EQ(recorder.takeLog(),
              (Log{"B:down 50,50", "B:drag -10,-10", "B:up -10,-10", "B:uncapt"}));
    EXPECT_FALSE(GetCapture());

    captureAnew = true;
    recorder.host.tap(150, 100);
    recorder.host.tap(10, 100); // still captured
    recorder.host.run();
    EXPECT_EQ(recorder.takeLog(),
              (Log{"B:down 50,50", "B:up 50,50", "B:down -90,50", "B:up -90,50"}));
    EXPECT_EQ(SetCapture(a), b);
    EXPECT_EQ(recorder.takeLog(), (Log{"B:uncapt"}));
    EnableWindow(a, FALSE);
    EXPECT_FALSE(GetCapture());

    captureAnew = false;
    const HWND control = recorder.window('C', {10, 10, 20, 20}, b, child);
    SetCapture(control);
    EnableWindow(b, FALSE); // a question comes up while the stylus is on a control
    EXPECT_FALSE(GetCapture());
}

TEST(Accelerators, SendTheirCommands)
{
    constexpr std::uint16_t virtualKey = 0x01;
    constexpr std::uint16_t control = 0x08;
    constexpr std::uint16_t last = 0x80;
    const std::vector<std::uint16_t> table = {
        virtualKey | control, 'Q', 1, 0, virtualKey | last, VK_F4, 77, 0, 9 /* cut off */};
    ResourceImage image;
    image.add(9, 3, table);
    Recorder recorder(image.bytes);
    const HWND window = recorder.window('A', {0, 50, 100, 150});
    EXPECT_FALSE(LoadAcceleratorsW({}, MAKEINTRESOURCEW(4)));
    const HACCEL accelerators = LoadAcceleratorsW({}, MAKEINTRESOURCEW(3));
    recorder.noted = {WM_COMMAND};

    struct Case
    {
        int key;
        bool control;
        bool shift;
        UINT message;
        WPARAM command; ///< 0: none
    };
    for (const Case &each : {Case{'Q', true, false, WM_KEYDOWN, 1}, //
                             {'Q', false, false, WM_KEYDOWN, 0},
                             {'Q', true, true, WM_KEYDOWN, 0},
                             {'Q', true, false, WM_KEYUP, 0},
                             {VK_F4, false, false, WM_KEYDOWN, 77},
                             {VK_F4, true, false, WM_KEYDOWN, 0}})
    {
        host::Event event;
        event.kind = Kind::KeyDown;
        event.key = static_cast<std::uint16_t>(each.key);
        event.control = each.control;
        event.shift = each.shift;
        recorder.host.give(event);
        MSG message{};
        while (message.message != WM_KEYDOWN) {
            GetMessageW(&message, {}, 0, 0);
            DispatchMessageW(&message);
        }
        message.message = each.message;
        EXPECT_EQ(TranslateAcceleratorW(window, accelerators, &message), each.command ? 1 : 0);
        const Log expected =
            each.command ? Log{"A:command " + std::to_string(each.command | 0x10000)} : Log{};
        EXPECT_EQ(recorder.takeLog(), expected);
    }
    MSG message{window, WM_KEYDOWN, VK_F4, 0, 0, {}};
    EXPECT_EQ(TranslateAcceleratorW(window, {}, &message), 0);
    EnableWindow(window, FALSE);
    EXPECT_EQ(TranslateAcceleratorW(window, accelerators, &message), 0);
}

TEST(System, AsksTheMainWindowAlsoBehindADialog)
{
    Recorder recorder;
    const HWND main = recorder.window('M', {0, 50, 100, 150});
    recorder.window('D', {0, 60, 50, 80}, main, WS_POPUP | WS_VISIBLE);
    EnableWindow(main, FALSE);
    recorder.noted = {WM_HELP, WM_HIBERNATE, WM_CLOSE, WM_DESTROY};
    for (const Kind kind : {Kind::Help, Kind::Hibernate, Kind::Close}) {
        host::Event event;
        event.kind = kind;
        recorder.host.give(event);
    }
    recorder.host.run();
    EXPECT_EQ(recorder.takeLog(),
              (Log{"D:help", "M:help", "M:hibernate", "M:close", "D:destroy", "M:destroy"}));
    host::Event close;
    close.kind = Kind::Close;
    recorder.host.give(close);
    MSG message{};
    EXPECT_EQ(GetMessageW(&message, {}, 0, 0), 0); // without a window: the end
}

} // namespace
