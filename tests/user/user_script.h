// The user of the handheld in tests: steps that follow one another, each begun when everything
// that the one before did has been handled.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>

#include "pilot/inspect.h"
#include "support/fake_host.h"

class UserScript
{
public:
    explicit UserScript(FakeHost &host) : host_(host) {}

    void then(std::function<void()> step)
    {
        steps_.push_back(std::move(step));
        if (!waiting_) {
            waitForNext();
        }
    }

    void press(int key, bool shift = false)
    {
        then([=, this] {
            host_.give({.kind = host::Event::Kind::KeyDown,
                        .key = static_cast<std::uint16_t>(key),
                        .shift = shift});
            host_.key(key, false);
        });
    }
    void type(std::u16string text)
    {
        then([=, this] { host_.type(text); });
    }
    void give(const host::Event &event)
    {
        then([=, this] { host_.give(event); });
    }
    void stylus(host::Event::Kind kind, int x, int y)
    {
        then([=, this] { host_.stylus(kind, x, y); });
    }
    void tap(int x, int y)
    {
        then([=, this] { host_.tap(x, y); });
    }
    void click(int control)
    {
        tapAt([=] { return inspect::control(control); });
    }
    void tapListItem(int combo, int index)
    {
        tapAt([=] { return inspect::openListItem(combo, index); });
    }
    void tapMenuButton(int index)
    {
        tapAt([=] { return inspect::menuBarButton(index); });
    }
    void tapMenuItem(int command)
    {
        tapAt([=] { return inspect::openMenuItem(command); });
    }
    void tapOk()
    {
        tapAt([] { return inspect::okButton(); });
    }

private:
    void tapAt(std::function<std::optional<inspect::Target>()> find)
    {
        then([=, this] {
            const auto target = find();
            ASSERT_TRUE(target);
            host_.tap(target->centre.x, target->centre.y);
        });
    }
    void waitForNext()
    {
        waiting_ = true;
        host_.act([this] {
            waiting_ = false;
            const auto step = std::move(steps_.front());
            steps_.pop_front();
            step();
            if (!steps_.empty() && !waiting_) {
                waitForNext();
            }
        });
    }

    FakeHost &host_;
    std::deque<std::function<void()>> steps_;
    bool waiting_ = false;
};
