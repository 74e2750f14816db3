// A program of a few bytes, whose state depends on every tick of 25 ms and on all that the user
// does: for tests of what records and plays programs.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "host/host.h"
#include "record/input_command.h"
#include "record/record.h"

struct SmallProgram
{
    std::uint32_t state = 1;
    std::uint32_t ticks = 0;
    std::string heard; ///< the events, as lines
    std::function<void()> atTick = [] {};
    std::optional<std::string> chapter;

    record::Subject subject()
    {
        return {std::as_bytes(std::span(&state, 1)), [this] { return std::exchange(chapter, {}); }};
    }

    /// Ends when it is asked to. Each tick draws its state; a key begins a chapter.
    void run(host::Host &host)
    {
        std::array<std::uint16_t, 1> pixels{};
        std::uint32_t next = host.ticks() + 25;
        for (;;) {
            const auto event = host.wait(next);
            if (event && event->kind == host::Event::Kind::Close) {
                host.saveStore(std::as_bytes(std::span(&state, 1)));
                return;
            }
            if (event) {
                heard += record::lineFor(*event) + '\n';
                if (event->kind == host::Event::Kind::KeyDown && event->key == 'C') {
                    chapter = "chapter " + std::to_string(ticks);
                }
            } else {
                ++ticks;
                next += 25;
                atTick();
            }
            state =
                state * 1664525 + static_cast<std::uint32_t>(heard.size()) + ticks + host.ticks();
            pixels[0] = static_cast<std::uint16_t>(state >> 16U);
            host.present({pixels.data(), 1, 1}, {0, 0, 1, 1});
        }
    }
};
