// The order in which messages come, and timers.
#include <gtest/gtest.h>

#include "user/recorder.h"

namespace {

using Log = std::vector<std::string>;

TEST(Messages, ComeByPriority)
{
    Recorder recorder;
    const HWND window = recorder.window('A', {0, 50, 100, 100});
    recorder.noted = {WM_USER, WM_KEYDOWN, WM_PAINT, WM_TIMER, WM_LBUTTONUP};
    SetTimer(window, 7, 10, nullptr);
    recorder.host.run();
    recorder.takeLog();

    recorder.host.clock += 10; // the timer is due, all the rest comes before it
    InvalidateRect(window, nullptr, TRUE);
    recorder.host.key(VK_LEFT, true);
    recorder.host.stylus(host::Event::Kind::StylusUp, 5, 60);
    PostMessageW(window, WM_USER, 1, 0);
    PostMessageW(window, WM_USER, 2, 0);
    recorder.handler = [&](HWND, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message == WM_KEYDOWN) {
            PostMessageW(window, WM_USER, 3, 0);
        }
        return std::nullopt;
    };
    recorder.host.run();
    EXPECT_EQ(recorder.takeLog(), (Log{"A:user 1", "A:user 2", "A:keydown 37", "A:user 3",
                                       "A:up 5,10", "A:paint", "A:timer 7 at 1010"}));
}

TEST(Messages, QuitComesAfterInputAndBeforePaint)
{
    Recorder recorder;
    const HWND window = recorder.window('A', {0, 50, 100, 100});
    recorder.noted = {WM_USER, WM_KEYDOWN, WM_PAINT};
    PostQuitMessage(5);
    PostMessageW(window, WM_USER, 1, 0);
    recorder.host.key(VK_LEFT, true);
    MSG message{};
    while (GetMessageW(&message, {}, 0, 0) != 0) {
        DispatchMessageW(&message);
    }
    EXPECT_EQ(recorder.takeLog(), (Log{"A:user 1", "A:keydown 37"}));
    EXPECT_EQ(message.wParam, 5U);
    recorder.host.run(); // the quit was taken: the next loop goes on
    EXPECT_EQ(recorder.takeLog(), (Log{"A:paint"}));
}

TEST(Messages, OfDeadWindowsAndNoWindowsHaveNoEffect)
{
    Recorder recorder;
    const HWND dead = recorder.window('A', {0, 50, 100, 100});
    recorder.noted = {WM_USER, WM_TIMER};
    PostMessageW(dead, WM_USER, 0, 0);
    SetTimer(dead, 1, 5, nullptr);
    DestroyWindow(dead);
    recorder.host.run(20);
    for (const HWND window : {dead, HWND{}, HWND{12345}}) {
        const MSG message{window, WM_USER, 0, 0, 0, {}};
        EXPECT_FALSE(PostMessageW(window, WM_USER, 0, 0));
        EXPECT_EQ(SendMessageW(window, WM_USER, 0, 0), 0);
        EXPECT_EQ(DispatchMessageW(&message), 0);
        EXPECT_EQ(SetTimer(window, 1, 10, nullptr), 0U);
        EXPECT_FALSE(KillTimer(window, 1));
        EXPECT_FALSE(DestroyWindow(window));
        EXPECT_FALSE(MoveWindow(window, 0, 0, 1, 1, TRUE));
        EXPECT_FALSE(SetActiveWindow(window));
        EXPECT_FALSE(BeginPaint(window, nullptr));
    }
    EXPECT_EQ(recorder.takeLog(), Log{});
}

TEST(Messages, OnlyControlCharactersAreTranslated)
{
    Recorder recorder;
    recorder.window('A', {0, 50, 100, 100});
    recorder.noted = {WM_CHAR};
    for (const int key : {VK_BACK, VK_TAB, VK_RETURN, VK_LEFT, int{'Z'}}) {
        recorder.host.key(key, true);
    }
    recorder.host.type(u"z");
    recorder.host.run();
    EXPECT_EQ(recorder.takeLog(), (Log{"A:char 8", "A:char 9", "A:char 13", "A:char 122"}));
}

TEST(Timers, FireWhenDueInOrder)
{
    Recorder recorder;
    const HWND window = recorder.window('A', {0, 50, 100, 100});
    recorder.noted = {WM_TIMER};
    SetTimer(window, 1, 20, nullptr);
    SetTimer(window, 2, 30, nullptr);
    SetTimer(window, 3, 30, nullptr); // after the other at equal moments
    recorder.host.run(60);
    EXPECT_EQ(
        recorder.takeLog(),
        (Log{"A:timer 1 at 1020", "A:timer 2 at 1030", "A:timer 3 at 1030", "A:timer 1 at 1040",
             "A:timer 1 at 1060", "A:timer 2 at 1060", "A:timer 3 at 1060"}));
    EXPECT_EQ(recorder.host.timersHandled, 7);

    KillTimer(window, 1);
    KillTimer(window, 3);
    SetTimer(window, 2, 500, nullptr); // restarts it, from now
    recorder.host.run(500);
    EXPECT_EQ(recorder.takeLog(), (Log{"A:timer 2 at 1560"}));
}

TEST(Timers, TellMissedMomentsOnceAndKeepTheirBeat)
{
    Recorder recorder;
    const HWND window = recorder.window('A', {0, 50, 100, 100});
    recorder.noted = {WM_TIMER};
    SetTimer(window, 1, 25, nullptr);
    recorder.handler = [&](HWND, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message == WM_TIMER && GetTickCount() == 1025) {
            recorder.host.clock += 60; // busy over the moments 1050 and 1075
        }
        return std::nullopt;
    };
    recorder.host.run(125);
    EXPECT_EQ(recorder.takeLog(), (Log{"A:timer 1 at 1025", "A:timer 1 at 1085",
                                       "A:timer 1 at 1100", "A:timer 1 at 1125"}));
}

TEST(Timers, SetAnewInTheirOwnHandlerStartFromThere)
{
    Recorder recorder;
    const HWND window = recorder.window('A', {0, 50, 100, 100});
    recorder.noted = {WM_TIMER};
    SetTimer(window, 1, 500, nullptr);
    recorder.handler = [&](HWND, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message == WM_TIMER) {
            SetTimer(window, 1, 25, nullptr);
        }
        return std::nullopt;
    };
    recorder.host.run(550);
    EXPECT_EQ(recorder.takeLog(),
              (Log{"A:timer 1 at 1500", "A:timer 1 at 1525", "A:timer 1 at 1550"}));
}

TEST(Timers, SurviveTheWrapOfTheClock)
{
    Recorder recorder;
    const HWND window = recorder.window('A', {0, 50, 100, 100});
    recorder.noted = {WM_TIMER};
    recorder.host.clock = 0xFFFFFFF0U;
    SetTimer(window, 1, 10, nullptr);
    SetTimer(window, 2, 25, nullptr);
    recorder.host.run(30);
    EXPECT_EQ(recorder.takeLog(), (Log{"A:timer 1 at 4294967290", "A:timer 1 at 4",
                                       "A:timer 2 at 9", "A:timer 1 at 14"}));
}

} // namespace
