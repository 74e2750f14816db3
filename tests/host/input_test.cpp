// What keys, controllers and fingers become.
#include <gtest/gtest.h>

#include <utility>

#include "host/input_mapper.h"
#include "host/key_table.h"

namespace {

using host::InputMapper;
using Kind = host::Event::Kind;

class InputTest : public testing::Test
{
protected:
    void key(std::string_view name, bool down, host::KeyModifiers modifiers = {})
    {
        const int source = static_cast<int>(std::hash<std::string_view>()(name) & 0xFFFF);
        down ? void(input.keyDown(source, name, modifiers, false)) : input.keyUp(source, name);
    }
    void tap(std::string_view name, host::KeyModifiers modifiers = {})
    {
        key(name, true, modifiers);
        key(name, false);
    }
    /// The events since the last call: "+193" and "-193" for keys, "z" for text, and names.
    std::string taken() { return std::exchange(log, ""); }
    void note(const host::Event &event)
    {
        log += log.empty() ? "" : " ";
        log += event.kind == Kind::KeyDown ? "+"
               : event.kind == Kind::KeyUp ? "-"
               : event.kind == Kind::Help  ? "help"
               : event.kind == Kind::Close ? "close"
               : event.kind == Kind::Text  ? std::string(1, static_cast<char>(event.text))
                                           : "other";
        log += event.key != 0 ? std::to_string(event.key) : "";
        log += event.control ? "c" : event.escape ? "e" : "";
    }

    std::uint32_t now = 1000;
    std::string log;
    InputMapper input{[this] { return now; }, [this](const host::Event &event) { note(event); }};
};

TEST_F(InputTest, ButtonIsDownWhileAnyOfItsKeysIs)
{
    key("z", true);
    key("ControlLeft", true);
    input.controllerButton(0, 1, true);
    key("z", false);
    key("ControlLeft", false);
    EXPECT_EQ(taken(), "+195");
    input.finger(7, host::buttonC);
    input.controllerGone(0);
    EXPECT_EQ(taken(), "");
    input.finger(7, host::padLeft); // slides on
    EXPECT_EQ(taken(), "-195 +37");
    tap("Escape");
    EXPECT_EQ(taken(), "+193e -193");
}

TEST_F(InputTest, TypingIsNotPlaying)
{
    key("p", true);
    input.wantText(true);
    EXPECT_EQ(taken(), "+193 -193") << "what is held is released";
    for (const auto *name : {"p", "a", "x", " ", "c", "z", "1", "ShiftLeft", "ControlLeft"}) {
        tap(name);
    }
    input.text(u'p');
    EXPECT_EQ(taken(), "p");
    for (const auto *name : {"Enter", "ArrowLeft", "Backspace", "Tab"}) {
        tap(name);
    }
    EXPECT_EQ(taken(), "+13 -13 +37 -37 +8 -8 +9 -9");
    tap("q", {.control = true});
    EXPECT_EQ(taken(), "+81c -81") << "a command is no text";
    tap("q", {.control = true, .alt = true, .altGraph = true});
    EXPECT_EQ(taken(), "") << "a character of the third level";
    input.wantText(false);
    tap("p");
    tap("a");
    EXPECT_EQ(taken(), "+193 -193 +65 -65") << "a letter that is no button may become one";
}

TEST_F(InputTest, CombinationsOfTheDesktopAreLeftToIt)
{
    EXPECT_FALSE(input.keyDown(1, "r", {.control = true}, false) ||
                 input.keyDown(2, "ArrowLeft", {.alt = true}, false) ||
                 input.keyDown(3, "x", {.meta = true}, false) ||
                 input.keyDown(4, "AudioVolumeUp", {}, false));
    EXPECT_EQ(taken(), "");
    EXPECT_TRUE(input.keyDown(5, "x", {.control = true}, false)) << "left Ctrl is a button, too";
    EXPECT_TRUE(input.keyDown(6, "F1", {}, false));
    EXPECT_EQ(taken(), "+196c help");
}

TEST_F(InputTest, BackWithAnotherButtonAsksForMore)
{
    input.controllerButton(3, 8, true);
    input.controllerButton(3, 9, true);
    input.controllerButton(3, 2, true);
    EXPECT_TRUE(input.controllerButton(3, 3, true));
    EXPECT_EQ(taken(), "+13 close help");
    input.controllerAxis(3, 0, -0.6);
    input.controllerAxis(3, 0, -0.4); // keeps its state
    EXPECT_EQ(taken(), "+37");
    input.setAway(true);
    input.controllerAxis(3, 0, -0.6);
    tap("x");
    EXPECT_EQ(taken(), "-37 -13 other");
}

TEST_F(InputTest, WhatTheBoxReleasedStaysReleasedAndNoShortcutIsAButton)
{
    input.keyDown(7, "ArrowLeft", {}, false);
    input.wantText(true);
    EXPECT_EQ(taken(), "+37 -37");
    input.keyDown(7, "ArrowLeft", {}, true); // it still repeats itself
    input.keyUp(7, "ArrowLeft");
    EXPECT_EQ(taken(), "") << "else Left stays down for the next game";
    for (const char *letter : {"p", "c", "x", "z"}) {
        tap(letter, {.control = true});
    }
    EXPECT_EQ(taken(), "") << "Ctrl with a letter";
    input.controllerAxis(0, 0, -1);
    input.wantText(false);
    input.wantText(true);
    taken();
    input.controllerAxis(0, 0, -0.99);
    EXPECT_EQ(taken(), "") << "a trembling stick";
}

} // namespace
