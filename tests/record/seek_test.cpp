// Whichever way a viewer comes to a moment of a game, he sees the same. Each viewing is a process
// of its own, as the program runs but once in each.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <set>

#include <sys/wait.h>
#include <unistd.h>

#include "handheld.h"
#include "host/descriptor.h"
#include "launch/game_subject.h"
#include "record/digest.h"
#include "record/watching_host.h"
#include "resources/program_resources.h"

namespace {

constexpr std::uint64_t tick = 25; // milliseconds
using Moments = std::vector<std::uint64_t>;
using Sights = std::vector<std::uint64_t>; ///< digests of the picture and the program

/// A game of random buttons.
record::Record randomGame()
{
    std::minstd_rand dice(7);
    std::string text = "# record 1\nwait 500\nstylus down 120 240\nstylus up 120 240\n";
    for (int i = 0; i < 400; ++i) {
        const std::string key = "key " + std::to_string("%&'(\xC2\xC3\xC4"[dice() % 7] & 0xFF);
        for (const char *way : {" down\n", " up\n"}) {
            text += "wait " + std::to_string(dice() % 150) + '\n' + key + way;
        }
    }
    auto result = record::read(text);
    EXPECT_EQ(result.problem, std::nullopt);
    return result.value;
}

/// A viewer who goes from moment to moment, and writes down what he sees.
class Visitor final : public record::Playback
{
public:
    Visitor(const record::Record &record, const Moments &moments, const host::Descriptor &report)
        : Playback(record, {}), moments_(moments), report_(report)
    {}

    std::optional<host::Event> wait(std::optional<std::uint32_t>) override
    {
        record::Digest digest;
        const auto size = static_cast<std::size_t>(frame_.width * frame_.height);
        digest.add(std::as_bytes(std::span(frame_.pixels, size)));
        digest.add(std::as_bytes(std::span(&gameApp, 1)));
        const std::uint64_t sight = digest.value();
        if (!report_.writeAll(std::as_bytes(std::span(&sight, 1))) || ++next_ == moments_.size()) {
            _exit(0);
        }
        host::Event event;
        event.kind = host::Event::Kind::Watch;
        event.watch = host::WatchCommand::Seek;
        event.x = static_cast<int>(moments_[next_]);
        return event;
    }
    void present(const host::Frame &frame, const host::Area &) override { frame_ = frame; }

private:
    const Moments &moments_;
    const host::Descriptor &report_;
    std::size_t next_ = 0;
    host::Frame frame_;
};

/// What is seen at the moments, which come in order.
Sights visit(const record::Record &record, const Moments &moments)
{
    int ends[2];
    EXPECT_EQ(pipe(ends), 0);
    const host::Descriptor output(ends[0]);
    host::Descriptor input(ends[1]);
    if (fork() == 0) {
        Visitor visitor(record, moments, input);
        GameLog games;
        record::WatchingHost host(record, gameSubject(games), visitor, {moments[0], 4, false},
                                  {[](const auto &) { _exit(1); }, [] {}});
        handheld::run(host, {WinMain, programResources()}, 0);
        _exit(1);
    }
    input.close();
    const std::string bytes = output.readAll().value_or("");
    wait(nullptr);
    Sights sights(bytes.size() / sizeof(Sights::value_type));
    std::memcpy(sights.data(), bytes.data(), bytes.size());
    EXPECT_EQ(sights.size(), moments.size());
    return sights;
}

TEST(Seeking, ShowsWhatTheStraightRunShows)
{
    const record::Record record = randomGame();
    Moments all(record.length / tick);
    std::generate(all.begin(), all.end(), [next = 0U]() mutable { return tick * next++; });
    const Sights straight = visit(record, all);
    ASSERT_GT(std::set(straight.begin(), straight.end()).size(), 500U) << "a game is played";
    std::minstd_rand dice(1);
    for (int i = 0; i < 200 && !HasFailure(); ++i) {
        Moments moments(5);
        std::generate(moments.begin(), moments.end(), [&] { return dice() % all.size() * tick; });
        std::sort(moments.begin(), moments.end());
        const Sights seen = visit(record, moments);
        for (std::size_t k = 0; k < moments.size(); ++k) {
            EXPECT_EQ(seen.at(k), straight[moments[k] / tick]) << moments[k];
        }
    }
}

} // namespace
