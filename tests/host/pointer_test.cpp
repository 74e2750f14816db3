// The stylus without a mouse: by a keyboard's arrows, and by a controller that SDL makes up.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "host/key_table.h"
#include "host/sdl/desktop.h"
#include "host/sdl/sdl.h"
#include "host/stylus_pointer.h"

namespace {

using Kind = host::Event::Kind;

class PointerTest : public testing::Test
{
protected:
    void SetUp() override { pointer.setScreen({240, 320}); }
    void pass(int milliseconds)
    {
        for (int i = 0; i < milliseconds; ++i) {
            pointer.advance(++now);
        }
    }
    void key(std::uint16_t code, bool down) { EXPECT_TRUE(pointer.handleKey(code, down, now)); }
    void expectAt(int x, int y, int tolerance = 0)
    {
        const auto at = pointer.look();
        ASSERT_TRUE(at);
        EXPECT_NEAR(at->tip.x, x, tolerance);
        EXPECT_NEAR(at->tip.y, y, tolerance);
    }

    std::uint32_t now = 0xFFFFFF00U; ///< the clock wraps
    std::string last;                ///< what the stylus did last
    host::StylusPointer pointer{[this](Kind kind, host::Point at) {
        last = kind == Kind::StylusDown ? "down " : kind == Kind::StylusMove ? "move " : "up ";
        last += std::to_string(at.x) + ' ' + std::to_string(at.y);
    }};
};

TEST_F(PointerTest, ArrowsMoveItWhileItsKeyIsHeld)
{
    EXPECT_FALSE(pointer.handleKey(host::padLeft, true, now)) << "the program's";
    pointer.hold();
    expectAt(120, 160);
    EXPECT_FALSE(pointer.due()) << "at rest nothing wakes the process";
    EXPECT_FALSE(pointer.handleKey('A', true, now));
    key(host::padLeft, true);
    key(host::padLeft, true);
    pass(100);
    key(host::padLeft, false);
    expectAt(119, 160); // a tap is a pixel, and a repeated key no second one
    EXPECT_EQ(last, "");
    key(host::padCentre, true);
    EXPECT_EQ(last, "down 119 160");
    key(host::padDown, true);
    EXPECT_EQ(last, "move 119 161");
    pass(560);
    expectAt(119, 161 + 40, 3); // 0.4 s from 40 pixels a second on, and 300 more each second
    pass(2000);
    EXPECT_EQ(last, "move 119 319");
    pointer.setScreen({320, 240});
    EXPECT_EQ(last, "move 119 239");
    pointer.letGo();
    EXPECT_EQ(last, "up 119 239");
    EXPECT_FALSE(pointer.look() || pointer.due() || pointer.isDown());
}

TEST_F(PointerTest, StickMovesItTheFartherTheFasterAndItHidesAfterARest)
{
    pointer.lean(0.15, -0.15, now);
    EXPECT_FALSE(pointer.look()) << "a thumb rests on the stick";
    pointer.press(true, now);
    pointer.press(false, now);
    EXPECT_EQ(last, "") << "nobody taps what they do not see";
    int x = 120;
    for (const auto &[lean, way] : {std::pair(1.0, 70), {-1.0, -70}, {0.61, 16}}) {
        for (int i = 0; i < 25; ++i) { // reported more often than it steps
            pointer.lean(lean, 0, now);
            pass(10);
        }
        pointer.lean(0, 0, now);
        expectAt(x + way, 160, 5);
        x = pointer.look()->tip.x;
    }
    pointer.press(true, now);
    pass(9000);
    EXPECT_TRUE(pointer.look()) << "not while it is down";
    pointer.press(false, now);
    pass(3000);
    EXPECT_TRUE(pointer.look());
    pass(2000);
    EXPECT_FALSE(pointer.look() || pointer.due());
    pointer.lean(1, 0, now);
    pointer.advance(now + 100000);
    EXPECT_LE(pointer.look()->tip.x, x + 20) << "after a stall it does not leap";
}

/// The whole way, from controllers that SDL makes up to the events that the handheld gets.
class ControllerTest : public testing::Test
{
protected:
    ControllerTest()
    {
        setenv("SDL_VIDEODRIVER", "dummy", 1);
        SDL_SetHint(SDL_HINT_JOYSTICK_ALLOW_BACKGROUND_EVENTS, "1");
        std::filesystem::create_directories(folder);
    }
    void open()
    {
        host = desktop::open({.storeFolder = folder, .scale = 1, .needsScreen = {}});
        host->present({pixels.data(), 240, 320}, {0, 0, 240, 320});
        events(); // looks for controllers
    }
    std::vector<Kind> events()
    {
        std::vector<Kind> kinds;
        const std::uint32_t end = host->ticks() + 120;
        while (const auto event = host->wait(end)) {
            kinds.push_back(event->kind);
            x = event->x;
        }
        return kinds;
    }
    std::vector<Kind> press(int button, bool down)
    {
        SDL_JoystickSetVirtualButton(stick, button, down ? 1 : 0);
        return events();
    }

    const std::filesystem::path folder =
        testing::TempDir() + testing::UnitTest::GetInstance()->current_test_info()->name();
    const std::vector<std::uint16_t> pixels = std::vector<std::uint16_t>(240 * 320);
    std::unique_ptr<host::Host> host;
    SDL_Joystick *stick = nullptr;
    int x = 0; ///< of the last event
};

TEST_F(ControllerTest, AloneTapsAndQuits)
{
    open();
    stick = SDL_JoystickOpen(SDL_JoystickAttachVirtual(
        SDL_JOYSTICK_TYPE_GAMECONTROLLER, SDL_CONTROLLER_AXIS_MAX, SDL_CONTROLLER_BUTTON_MAX, 0));
    events();
    for (const Sint16 lean : {Sint16{32767}, Sint16{0}}) {
        SDL_JoystickSetVirtualAxis(stick, SDL_CONTROLLER_AXIS_RIGHTX, lean);
        EXPECT_TRUE(events().empty()) << "a raised stylus makes no event";
    }
    for (const auto &[button, down, expected] :
         {std::tuple(SDL_CONTROLLER_BUTTON_RIGHTSTICK, true, std::vector{Kind::StylusDown}),
          {SDL_CONTROLLER_BUTTON_RIGHTSTICK, false, {Kind::StylusUp}},
          {SDL_CONTROLLER_BUTTON_X, true, {Kind::KeyDown}},
          {SDL_CONTROLLER_BUTTON_X, false, {Kind::KeyUp}},
          {SDL_CONTROLLER_BUTTON_BACK, true, {Kind::KeyDown}},
          {SDL_CONTROLLER_BUTTON_X, true, {Kind::Help}},
          {SDL_CONTROLLER_BUTTON_X, false, {}},
          {SDL_CONTROLLER_BUTTON_START, true, {Kind::Close}}})
    {
        EXPECT_EQ(press(button, down), expected) << button << down;
        EXPECT_TRUE(expected != std::vector{Kind::StylusUp} || x > 125) << x;
    }
    SDL_JoystickClose(stick);
}

TEST_F(ControllerTest, ComesGoesAndIsTaught)
{
    const auto plugIn = [](SDL_JoystickType type) {
        return SDL_JoystickAttachVirtual(type, 0, 1, 0);
    };
    const auto idOf = [&](int index) {
        char id[33];
        SDL_JoystickGetGUIDString(SDL_JoystickGetDeviceGUID(index), id, sizeof id);
        return std::string(id).replace(4, 4, "0000");
    };
    SDL_InitSubSystem(SDL_INIT_JOYSTICK);
    std::ofstream(folder / "gamecontrollerdb.txt")
        << idOf(plugIn(SDL_JOYSTICK_TYPE_DRUM_KIT)) << ",taught,x:b0,\n";
    SDL_QuitSubSystem(SDL_INIT_JOYSTICK);

    open();
    for (int round = 0; round < 2; ++round) {
        const int index = plugIn(SDL_JOYSTICK_TYPE_DRUM_KIT); // back again, or another
        events();
        stick = SDL_JoystickOpen(index);
        EXPECT_EQ(press(0, true), std::vector{Kind::KeyDown});
        SDL_JoystickClose(stick);
        SDL_JoystickDetachVirtual(index); // in mid-press
        EXPECT_EQ(events(), std::vector{Kind::KeyUp});
    }
    testing::internal::CaptureStderr();
    const std::string id = idOf(plugIn(SDL_JOYSTICK_TYPE_GUITAR));
    events();
    plugIn(SDL_JOYSTICK_TYPE_GUITAR);
    events();
    const std::string line = testing::internal::GetCapturedStderr();
    EXPECT_NE(line.find(id + " in " + (folder / "gamecontrollerdb.txt").string()), line.npos);
    EXPECT_EQ(std::count(line.begin(), line.end(), '\n'), 1) << "it is said once";
}

} // namespace
