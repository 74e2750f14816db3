// The order in which messages come, and timers.
#include "user/program_test.h"

namespace {

struct Messages : HandheldTest
{
    Messages() { recorder.noted = {WM_USER, WM_KEYDOWN, WM_LBUTTONUP, WM_PAINT, WM_TIMER}; }

    HWND window = recorder.window('A', {0, 50, 100, 100});
};

TEST_F(Messages, ComeByPriority)
{
    SetTimer(window, 7, 10, nullptr);
    host.run();
    recorder.takeLog();

    host.clock += 10; // the timer is due, all the rest comes before it
    InvalidateRect(window, nullptr, TRUE);
    host.key(VK_LEFT, true);
    host.stylus(host::Event::Kind::StylusUp, 5, 60);
    PostMessageW(window, WM_USER, 1, 0);
    PostMessageW(window, WM_USER, 2, 0);
    recorder.when(WM_KEYDOWN, [&](HWND, WPARAM, LPARAM) { PostMessageW(window, WM_USER, 3, 0); });
    EXPECT_EQ(run(), (Log{"A:user 1", "A:user 2", "A:keydown 37", "A:user 3", "A:up 5,10",
                          "A:paint", "A:timer 7 at 1010"}));
}

TEST_F(Messages, QuitComesAfterInputAndBeforePaint)
{
    PostQuitMessage(5);
    PostMessageW(window, WM_USER, 1, 0);
    host.key(VK_LEFT, true);
    MSG message{};
    while (GetMessageW(&message, {}, 0, 0) != 0) {
        DispatchMessageW(&message);
    }
    EXPECT_EQ(recorder.takeLog(), (Log{"A:user 1", "A:keydown 37"}));
    EXPECT_EQ(message.wParam, 5U);
    EXPECT_EQ(run(), (Log{"A:paint"})); // the quit was taken: the next loop goes on
}

TEST_F(Messages, OfDeadWindowsAndNoWindowsHaveNoEffect)
{
    PostMessageW(window, WM_USER, 0, 0);
    SetTimer(window, 1, 5, nullptr);
    DestroyWindow(window);
    host.run(20);
    for (const HWND none : {window, HWND{}, HWND{12345}}) {
        const MSG message{none, WM_USER, 0, 0, 0, {}};
        EXPECT_FALSE(PostMessageW(none, WM_USER, 0, 0));
        EXPECT_EQ(SendMessageW(none, WM_USER, 0, 0), 0);
        EXPECT_EQ(DispatchMessageW(&message), 0);
        EXPECT_EQ(SetTimer(none, 1, 10, nullptr), 0U);
        EXPECT_FALSE(KillTimer(none, 1));
        EXPECT_FALSE(DestroyWindow(none));
        EXPECT_FALSE(MoveWindow(none, 0, 0, 1, 1, TRUE));
        EXPECT_FALSE(SetActiveWindow(none));
        EXPECT_FALSE(BeginPaint(none, nullptr));
    }
    EXPECT_EQ(recorder.takeLog(), Log{});
}

TEST_F(Messages, OnlyControlCharactersAreTranslated)
{
    recorder.noted = {WM_CHAR};
    for (const int key : {VK_BACK, VK_TAB, VK_RETURN, VK_LEFT, int{'Z'}}) {
        host.key(key, true);
    }
    host.type(u"z");
    EXPECT_EQ(run(), (Log{"A:char 8", "A:char 9", "A:char 13", "A:char 122"}));
}

struct Timers : Messages
{
    Timers() { recorder.noted = {WM_TIMER}; }
};

TEST_F(Timers, FireWhenDueInOrder)
{
    SetTimer(window, 1, 20, nullptr);
    SetTimer(window, 2, 30, nullptr);
    SetTimer(window, 3, 30, nullptr); // after the other at equal moments
    EXPECT_EQ(run(60), (Log{"A:timer 1 at 1020", "A:timer 2 at 1030", "A:timer 3 at 1030",
                            "A:timer 1 at 1040", "A:timer 1 at 1060", "A:timer 2 at 1060",
                            "A:timer 3 at 1060"}));
    EXPECT_EQ(host.timersHandled, 7);

    KillTimer(window, 1);
    KillTimer(window, 3);
    SetTimer(window, 2, 500, nullptr); // restarts it, from now
    EXPECT_EQ(run(500), (Log{"A:timer 2 at 1560"}));
}

TEST_F(Timers, ComeOnceForMissedMomentsAndKeepTheirBeat)
{
    SetTimer(window, 1, 25, nullptr);
    recorder.when(WM_TIMER, [&](HWND, WPARAM, LPARAM) {
        host.clock += host.clock == 1025 ? 60 : 0; // busy over the moments 1050 and 1075
    });
    EXPECT_EQ(run(125), (Log{"A:timer 1 at 1025", "A:timer 1 at 1085", "A:timer 1 at 1100",
                             "A:timer 1 at 1125"}));
}

TEST_F(Timers, SetAnewInTheirOwnHandlerStartFromThere)
{
    SetTimer(window, 1, 500, nullptr);
    recorder.when(WM_TIMER, [&](HWND, WPARAM, LPARAM) { SetTimer(window, 1, 25, nullptr); });
    EXPECT_EQ(run(550), (Log{"A:timer 1 at 1500", "A:timer 1 at 1525", "A:timer 1 at 1550"}));
}

} // namespace
