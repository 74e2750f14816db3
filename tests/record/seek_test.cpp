// Whichever way a viewer comes to a moment of a game, he sees the same. Each viewing is a process
// of its own, as the program runs but once in each.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>

#include <sys/wait.h>
#include <unistd.h>

#include "host/descriptor.h"
#include "launch/game_subject.h"
#include "pilot/pilot.h"
#include "record/digest.h"
#include "record/read_file.h"
#include "record/watching_host.h"
#include "resources/program_resources.h"
#include "resources/resource.h"

namespace {

using record::WatchingHost;

const handheld::Program program{WinMain, programResources()};

/// Two games by random buttons, and two pages.
record::Record recordOfGames()
{
    const auto folder = std::filesystem::temp_directory_path();
    const auto name = "glimra-seek-test-" + std::to_string(getpid());
    const auto script = folder / (name + ".script");
    const auto file = folder / (name + ".pilot");
    std::minstd_rand dice(7);
    {
        std::ofstream lines(script);
        lines << "menu " << IDM_SHOW_HIGH_SCORES << "\nwait 700\ntap 120 150\n";
        for (int game = 0; game < 2; ++game) {
            lines << "menu " << IDM_ABOUT << "\nwait 700\ndone\nmenu " << IDM_NEW_GAME << '\n';
            for (int i = 0; i < 100; ++i) {
                lines << "press " << std::array{37, 38, 39, 40, 194, 195, 196}[dice() % 7] << ' '
                      << dice() % 100 << "\nwait " << dice() % 300 << '\n';
            }
            lines << "menu " << IDM_ABANDON_GAME << "\nwait 400\nclick " << IDYES << '\n';
        }
        lines << "close\n";
    }
    GameLog games;
    const pilot::Subject subject{gameSubject(games), {}, {}};
    pilot::Options options;
    options.record = file;
    options.script = script;
    pilot::run(options, program, subject);
    auto result = record::readFile(file);
    EXPECT_EQ(result.problem, std::nullopt);
    std::filesystem::remove(script);
    std::filesystem::remove(file);
    return result.value;
}

struct Sight
{
    std::uint64_t moment = 0; ///< milliseconds
    std::uint64_t picture = 0;
    std::uint64_t state = 0;

    friend bool operator==(const Sight &, const Sight &) = default;
};

/// A viewer who goes from moment to moment, and says what he sees to a descriptor.
class Visitor final : public record::Playback
{
public:
    Visitor(const std::vector<std::uint64_t> &moments, const host::Descriptor &report)
        : Playback(nothing_, {}), moments_(moments), report_(report)
    {}

    std::optional<host::Event> wait(std::optional<std::uint32_t>) override
    {
        record::Digest picture;
        const auto size = static_cast<std::size_t>(frame_.width * frame_.height);
        picture.add(std::as_bytes(std::span(frame_.pixels, size)));
        record::Digest state;
        state.add(std::as_bytes(std::span(&gameApp, 1)));
        const Sight sight{moments_[next_], picture.value(), state.value()};
        if (++next_ == moments_.size() || !report_.writeAll(std::as_bytes(std::span(&sight, 1)))) {
            _exit(0);
        }
        host::Event event{.kind = host::Event::Kind::Watch, .watch = host::WatchCommand::Seek};
        event.x = static_cast<int>(moments_[next_]);
        return event;
    }
    void present(const host::Frame &frame, const host::Area &) override { frame_ = frame; }

private:
    record::Record nothing_;
    const std::vector<std::uint64_t> &moments_;
    const host::Descriptor &report_;
    std::size_t next_ = 0;
    host::Frame frame_;
};

/// What is seen at the moments, which come in order; the last only ends the viewing.
std::vector<Sight> visit(const record::Record &record, const std::vector<std::uint64_t> &moments)
{
    int ends[2];
    EXPECT_EQ(pipe(ends), 0);
    const host::Descriptor output(ends[0]);
    host::Descriptor input(ends[1]);
    const pid_t child = fork();
    if (child == 0) {
        Visitor visitor(moments, input);
        GameLog games;
        WatchingHost host(record, gameSubject(games), visitor, {moments[0], 4, false},
                          {[](const auto &) { _exit(1); }, [] {}});
        handheld::run(host, program, 0);
        _exit(1);
    }
    input.close();
    const std::string bytes = output.readAll().value_or("");
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    std::vector<Sight> sights(bytes.size() / sizeof(Sight));
    std::memcpy(sights.data(), bytes.data(), sights.size() * sizeof(Sight));
    return sights;
}

constexpr unsigned tick = 25; // milliseconds

TEST(Seeking, ShowsWhatTheStraightRunShows)
{
    const record::Record record = recordOfGames();
    ASSERT_GT(record.length, 30000U);
    std::vector<std::uint64_t> all(record.length / tick + 2);
    std::generate(all.begin(), all.end(), [next = 0U]() mutable { return tick * next++; });
    const std::vector<Sight> straight = visit(record, all);
    ASSERT_EQ(straight.size(), all.size() - 1);
    EXPECT_NE(straight[400].state, straight[800].state);
    std::minstd_rand dice(1);
    constexpr int seeks = 1000;
    int compared = 0;
    while (compared < seeks) {
        std::vector<std::uint64_t> moments(6);
        std::generate(moments.begin(), moments.end(),
                      [&] { return dice() % straight.size() * tick; });
        std::sort(moments.begin(), moments.end());
        for (const Sight &sight : visit(record, moments)) {
            EXPECT_EQ(sight, straight[sight.moment / tick]) << sight.moment;
            ++compared;
        }
        ASSERT_FALSE(HasFailure());
    }
}

} // namespace
