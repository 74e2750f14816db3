// The parts of the desktop host that need no desktop: its clock, its enlarged picture.
#include <algorithm>
#include <array>
#include <cstring>
#include <fstream>

#include <gtest/gtest.h>

#include "host/sdl/picture.h"
#include "host/sdl/window_place.h"
#include "host/stepping_clock.h"
#include "host/timeline.h"

namespace {

using desktop::Canvas;
using desktop::Placement;
using desktop::Point;
using desktop::Size;
using host::Timeline;

TEST(Timeline, StepsThroughDueMomentsAndGivesUpLongStalls)
{
    const std::uint32_t cases[][4] = {
        {100, 125, 125, 125},    {100, 125, 900, 125},
        {100, 125, 1125, 125},   {100, 125, 1126, 1126},
        {0xFFFFFFF0U, 9, 12, 9}, {0xFFFFFFF0U, 0xFFFFFFFAU, 2, 0xFFFFFFFAU}};
    for (const auto &[start, deadline, now, shown] : cases) {
        Timeline timeline(start);
        const auto wait = [&timeline, moment = now](std::optional<std::uint32_t> until) {
            return timeline.wait(
                until, [=] { return moment; }, [](auto) { FAIL(); });
        };
        EXPECT_FALSE(wait(deadline));
        EXPECT_EQ(timeline.ticks(), shown);
        timeline.add({}, shown - 1);
        EXPECT_TRUE(wait(std::nullopt));
        EXPECT_EQ(timeline.ticks(), shown) << "the clock never goes back";
        timeline.add({}, shown + 3);
        EXPECT_TRUE(wait(std::nullopt));
        EXPECT_EQ(timeline.ticks(), shown + 3);
    }
}

TEST(Timeline, SleepsThroughQuietMomentsAndCatchesUp)
{
    std::uint32_t machine = 0;
    std::vector<std::uint32_t> sleeps;
    Timeline timeline(0, [](std::uint32_t moment) { return moment + 75; });
    const auto step = [&](std::uint32_t deadline) {
        return timeline.wait(
            deadline, [&] { return machine; },
            [&](std::optional<std::uint32_t> until) {
                sleeps.push_back(*until);
                const bool woken = *until == 325; // by an event
                machine = woken ? 260 : *until;
                if (woken) {
                    timeline.add({}, machine);
                }
            });
    };
    for (const std::uint32_t tick : {25U, 50U, 75U, 100U, 125U, 150U, 175U, 200U, 225U, 250U}) {
        EXPECT_FALSE(step(tick));
        EXPECT_EQ(timeline.ticks(), tick);
    }
    EXPECT_TRUE(step(275));
    EXPECT_EQ(timeline.ticks(), 260U);
    EXPECT_FALSE(step(275));
    EXPECT_FALSE(step(300));
    EXPECT_EQ(sleeps, (std::vector<std::uint32_t>{25, 125, 225, 325, 275, 375}));
}

TEST(SteppingClock, LetsATimerComeDueOnceHoweverLongTheMachineSlept)
{
    constexpr std::uint64_t day = 24 * 60 * 60 * 1000;
    for (const std::uint64_t slept : {day / 100, day, 25 * day, 40 * day, 50 * day, 400 * day}) {
        std::uint64_t machine = 0xFFFFFF00U; // a clock soon to wrap
        host::SteppingClock clock(machine);
        const auto now = [&] { return clock.at(machine); };
        Timeline timeline(now());
        int sleeps = 0;
        const std::uint32_t deadline = timeline.ticks() + 25;
        EXPECT_FALSE(timeline.wait(deadline, now, [&](auto) {
            machine += slept;
            ASSERT_EQ(++sleeps, 1);
        }));
        EXPECT_GT(host::distance(deadline, timeline.ticks()), Timeline::longestLag) << slept;
        EXPECT_EQ(now(), timeline.ticks());
        machine += 25;
        EXPECT_EQ(now(), timeline.ticks() + 25);
    }
}

TEST(Picture, LiesInTheMiddleAtTheLargestWholeScale)
{
    const Size picture{240, 320};
    for (const auto &[window, scale, left, top] : {std::tuple{Size{240, 320}, 1, 0, 0},
                                                   {Size{479, 640}, 1, 119, 160},
                                                   {Size{1920, 1080}, 3, 600, 60},
                                                   {Size{100, 319}, 1, -70, -1}})
    {
        const Placement placement = desktop::place(picture, window);
        EXPECT_EQ(std::tuple(placement.scale, placement.left, placement.top),
                  std::tuple(scale, left, top));
    }
    for (const auto &[points, pixels, last] :
         {std::tuple{480, 480, 479}, {480, 600, 599}, {480, 720, 719}, {480, 960, 959}})
    {
        const Point at = desktop::toPixels({0, points - 1}, {points, points}, {pixels, pixels});
        EXPECT_EQ(at.x, pixels / points / 2);
        EXPECT_EQ(at.y, last);
    }
    const Placement placement{3, 600, 60};
    for (const auto &[point, x, y, on] : {std::tuple{Point{599, 60}, 0, 0, false},
                                          {Point{600, 60}, 0, 0, true},
                                          {Point{1319, 1019}, 239, 319, true},
                                          {Point{1320, 1019}, 239, 319, false},
                                          {Point{602, 62}, 0, 0, true},
                                          {Point{603, 63}, 1, 1, true},
                                          {Point{0, 5000}, 0, 319, false}})
    {
        const Point pixel{x, y};
        EXPECT_EQ(desktop::toPicture(point, placement, picture, true), pixel) << point.x;
        EXPECT_EQ(desktop::toPicture(point, placement, picture, false),
                  on ? std::optional(pixel) : std::nullopt)
            << point.x;
    }
}

TEST(Picture, IsDrawnExactlyAndStaysOnTheCanvas)
{
    constexpr std::array<std::uint16_t, 6> pixels{0xF800, 0x07E0, 0x001F, 0xFFFF, 0x0841, 0x8410};
    constexpr std::array<std::uint32_t, 6> colours{0xFF0000, 0x00FF00, 0x0000FF,
                                                   0xFFFFFF, 0x080808, 0x848284};
    const host::Frame frame{pixels.data(), 3, 2};
    constexpr std::uint32_t untouched = 0x12345678;
    for (const Size size : {Size{9, 6}, Size{7, 4}, Size{4, 5}, Size{1, 1}}) {
        std::vector<std::uint32_t> memory(64, untouched);
        const auto row = static_cast<std::size_t>(size.width) * 4;
        const Canvas canvas{reinterpret_cast<std::byte *>(memory.data()), row, size, 16, 8, 0};
        const Placement placement = desktop::place({3, 2}, size);
        desktop::drawEnlarged(frame, {-5, -5, 50, 50}, placement, canvas);
        for (int y = 0; y < size.height; ++y) {
            for (int x = 0; x < size.width; ++x) {
                const auto at = desktop::toPicture({x, y}, placement, {3, 2}, false);
                const auto drawn = memory[static_cast<std::size_t>(y * size.width + x)];
                EXPECT_EQ(drawn,
                          at ? colours[static_cast<std::size_t>(at->y * 3 + at->x)] : untouched);
            }
        }
    }
    std::array<std::uint32_t, 24> memory{};
    const Canvas canvas{reinterpret_cast<std::byte *>(memory.data()), 24, {6, 4}, 16, 8, 0};
    const host::Area changed = desktop::drawEnlarged(frame, {1, 0, 2, 1}, {2, 0, 0}, canvas);
    EXPECT_EQ(changed.left * 1000 + changed.top * 100 + changed.right * 10 + changed.bottom, 2042);
    EXPECT_EQ(std::count(memory.begin(), memory.end(), 0U), 20) << "only the part is drawn";
}

TEST(WindowPlace, IsKeptAndTakenWhereTheWindowCanBeHeldAndSeenWhole)
{
    constexpr std::array<host::Area, 2> screens{{{0, 24, 1280, 1024}, {-800, 0, 0, 600}}};
    const std::filesystem::path folder = testing::TempDir();
    const std::pair<const char *, bool> cases[] = {{"480 640 1216 960", true},
                                                   {"480 640 1217 960", false},
                                                   {"480 640 1216 961", false},
                                                   {"480 640 100 23", false},
                                                   {"480 600 -700 0", true},
                                                   {"480 601 -700 0", false},
                                                   {"480 640 3", false},
                                                   {"0 640 99 99", false},
                                                   {"480 640 99 99999999999", false},
                                                   {"window", false},
                                                   {"480 640 -99999999999999999999 99", false}};
    for (const auto &[text, taken] : cases) {
        std::ofstream(folder / "window") << text;
        const auto place = desktop::loadWindowPlace(folder);
        EXPECT_EQ(place && desktop::isOnScreen(*place, screens), taken) << text;
    }
}

} // namespace
