// A viewer before a record: time, places, and playing on.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

#include "record/small_program.h"
#include "record/watching_host.h"
#include "support/fake_host.h"

namespace {

using host::WatchCommand;
using View = record::WatchingHost::View;
using enum WatchCommand;

/// A minute in which a key is held from 0:10.005 to 0:20.005, and then the stylus; from 0:30 the
/// machine sleeps for 5 seconds.
const std::string minute =
    "# record 1\nwait 10005\n# one\nkey 67 down\nwait 10000\n# two\nkey 67 up\n"
    "stylus down 3 4\nwait 9995\njump 5000\nwait 25000\nclose\n# closed\n";

struct Viewer
{
    FakeHost host;
    SmallProgram program;
    int viewed = 0; ///< times when the first frame was shown

    void give(WatchCommand command, std::uint32_t delay, int x = 0)
    {
        host.give({.kind = host::Event::Kind::Watch, .x = x, .watch = command}, delay);
    }
    void expect(std::uint32_t ticks, std::uint32_t delay, int line, std::uint32_t most = 2)
    {
        host.act([=, this] { EXPECT_NEAR(program.ticks, ticks, most) << "line " << line; }, delay);
    }

    /// Until the viewer ends that, or another viewer is to begin: how.
    std::optional<View> watch(const View &view = View{})
    {
        const auto record = record::read(minute).value;
        record::WatchingHost watching(record, program.subject(), host, view,
                                      {[](const View &next) { throw next; }, [this] { ++viewed; }});
        try {
            program.run(watching);
        } catch (const View &next) {
            return next;
        }
        return std::nullopt;
    }
};

TEST(Watching, GoesAtTheSpeedOfTheViewer)
{
    Viewer viewer;
    viewer.expect(40, 1000, __LINE__);
    viewer.give(Faster, 0);
    viewer.expect(40 + 80, 1000, __LINE__);
    for (int i = 0; i < 4; ++i) {
        viewer.give(Faster, 0);
    }
    viewer.expect(120 + 640, 1000, __LINE__, 10);
    for (int i = 0; i < 9; ++i) {
        viewer.give(Slower, 0); // the last two do nothing
    }
    viewer.expect(760 + 10, 1000, __LINE__);
    viewer.give(Toggle, 0);
    viewer.expect(770, 60000, __LINE__);
    viewer.give(Tick, 0);
    viewer.give(Tick, 100);
    viewer.expect(772, 100, __LINE__);
    viewer.host.act([&] {
        EXPECT_EQ(viewer.host.progress->chapter, "one");
        EXPECT_EQ(viewer.host.progress->quarterSpeed, 1);
        EXPECT_FALSE(viewer.host.progress->playing);
    });
    viewer.give(End, 0);
    EXPECT_EQ(viewer.watch(), std::nullopt);
    EXPECT_EQ(viewer.viewed, 1);
    EXPECT_FALSE(viewer.host.store) << "nothing is stored";
}

TEST(Watching, SeeksUnseen)
{
    Viewer viewer;
    viewer.expect(400, 10, __LINE__);
    int shown = 0;
    bool stayed = false;
    viewer.host.act([&] { shown = viewer.host.presented; });
    viewer.give(Seek, 0, 40000);
    viewer.expect(1600, 10, __LINE__);
    viewer.give(Forward, 0);
    viewer.expect(1800, 10, __LINE__);
    viewer.host.act([&] { EXPECT_LE(viewer.host.presented, shown + 4); });
    viewer.give(NextChapter, 0); // there is none, so the end, where the picture stays
    viewer.expect(2400, 5000, __LINE__);
    viewer.host.act([&] {
        stayed = true;
        EXPECT_EQ(viewer.host.progress->position, viewer.host.progress->length);
        EXPECT_FALSE(viewer.host.progress->playing);
    });
    viewer.give(End, 0);
    EXPECT_EQ(viewer.watch({.position = 10000}), std::nullopt);
    EXPECT_TRUE(stayed);

    for (const auto &[position, command, expected] : {std::tuple(30000U, Back, 25010U),
                                                      {3000U, Back, 0U},
                                                      {30000U, PreviousChapter, 20005U},
                                                      {20500U, PreviousChapter, 10005U},
                                                      {9000U, Start, 0U},
                                                      {60000U, Seek, 123U}})
    {
        Viewer back;
        back.give(Slower, 0);
        back.give(command, 20, 123);
        const auto next = back.watch({.position = position});
        ASSERT_TRUE(next) << position;
        EXPECT_EQ(next->position, expected) << position;
        EXPECT_EQ(next->quarterSpeed, 2);
    }
}

/// What a viewer sees who goes from moment to moment.
std::vector<int> sights(const std::vector<int> &moments)
{
    Viewer viewer;
    std::vector<int> seen;
    for (const int moment : moments) {
        viewer.give(Seek, 0, moment);
        viewer.host.act([&] { seen.push_back(viewer.host.corner); });
    }
    viewer.give(End, 0);
    EXPECT_EQ(viewer.watch({.playing = false}), std::nullopt);
    return seen;
}

TEST(Watching, ShowsTheSameWhicheverWayTheViewerComesToAMoment)
{
    std::vector<int> all(60000 / 25);
    std::generate(all.begin(), all.end(), [next = 0]() mutable { return 25 * next++; });
    const std::vector<int> straight = sights(all);
    ASSERT_GT(std::set(straight.begin(), straight.end()).size(), 2000U);
    std::minstd_rand dice(1);
    for (int i = 0; i < 200; ++i) {
        std::vector<int> moments;
        std::ranges::sample(all, std::back_inserter(moments), 5, dice);
        const std::vector<int> seen = sights(moments);
        for (std::size_t k = 0; k < moments.size(); ++k) {
            EXPECT_EQ(seen.at(k), straight.at(static_cast<std::size_t>(moments[k] / 25)))
                << moments[k];
        }
    }
}

TEST(Watching, EndsWhenTheViewerTakesOver)
{
    for (const auto &[position, released] : {std::pair(15000U, "key 67 up\n"),
                                             {25000U, "stylus up 3 4\n"},
                                             {60000U, "stylus up 3 4\n"}})
    {
        const std::string first = released;
        Viewer viewer;
        std::uint32_t before = 0;
        viewer.host.act([&] { before = viewer.program.ticks; }, 99);
        viewer.give(TakeOver, 0);
        viewer.host.act(
            [&] {
                EXPECT_TRUE(viewer.program.heard.ends_with(first)) << viewer.program.heard;
                EXPECT_NEAR(viewer.program.ticks, before + 20, 1) << "no time is lost";
                EXPECT_FALSE(viewer.host.progress);
            },
            500);
        viewer.host.key('X', true);
        viewer.host.give({.kind = host::Event::Kind::Close}, 30);
        EXPECT_EQ(viewer.watch({.position = position}), std::nullopt);
        EXPECT_TRUE(viewer.program.heard.ends_with("key 88 down\n")) << viewer.program.heard;
    }
}

} // namespace
