// Records: what they hold, what is refused, and that whatever differs is noticed.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <regex>
#include <sstream>

#include "record/playback.h"
#include "record/recording_host.h"
#include "record/small_program.h"
#include "support/fake_host.h"

namespace {

using Kind = host::Event::Kind;

/// A session of the small program on the fake host, recorded.
struct Session
{
    SmallProgram program;
    FakeHost host;
    record::RecordingHost recorder{host};
    std::string text;
    std::vector<std::string> parts; ///< as the record was written
    std::size_t room = SIZE_MAX;    ///< on the disk, bytes

    void play(bool turned = false)
    {
        recorder.begin("Tester 1", turned, program.subject(), [&](std::string_view part) {
            if (part.size() > room) {
                return host::Problem("the disk is full");
            }
            room -= part.size();
            parts.emplace_back(part);
            text += part;
            return host::Problem();
        });
        program.run(recorder);
        recorder.close();
    }

    /// Never at the moment of a tick, whose order the fake host leaves open.
    void giveDay()
    {
        host.key('C', true, 130);
        host.key('C', false, 9000);
        host.give({.kind = Kind::Text, .text = u'\x263A'}, 4000);
        host.key('C', true, 12350);
        host.give({.kind = Kind::Close}, 3000);
    }
};

/// The record without the numbers of its digests, and with the sum of all waits between two other
/// lines: time is written once a second.
std::string linesOf(const std::string &text)
{
    std::string result;
    std::istringstream lines(text);
    int passed = 0;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("wait ")) {
            passed += std::stoi(line.substr(5));
            continue;
        }
        result += passed != 0 ? "wait " + std::to_string(std::exchange(passed, 0)) + '\n' : "";
        result += (line.starts_with("# digest ") ? "# digest" : line) + '\n';
    }
    return result;
}

host::Problem play(const std::string &text, const std::function<void(SmallProgram &)> &change = {})
{
    const auto [record, problem] = record::read(text);
    if (problem) {
        return problem;
    }
    SmallProgram program;
    program.atTick = [&] { change ? change(program) : void(); };
    record::Playback playback(record, program.subject());
    program.run(playback);
    playback.programEnded();
    return playback.difference();
}

TEST(Record, HoldsTheStartTheUsersDoingsTheChaptersAndADigestEveryTenSeconds)
{
    Session session;
    session.host.store.emplace(60, std::byte{0x41});
    session.giveDay();
    session.play(true);
    EXPECT_EQ(linesOf(session.text),
              "# record 1\n# program Tester 1\n# clock 1000\n# landscape\n# store 60\n"
              "#: QUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFBQUFB\n"
              "#: QUFB\n"
              "# digest\nwait 130\nkey 67 down\n# chapter 5\n# digest\nwait 9000\nkey 67 up\n"
              "wait 1020\n# digest\n"
              "wait 2980\ntext 9786\nwait 7020\n# digest\nwait 5330\nkey 67 down\n# chapter 1019\n"
              "# digest\nwait 3000\nclose\n# digest\n# closed\n");
    EXPECT_EQ(play(session.text), std::nullopt);
    EXPECT_EQ(play(std::regex_replace(session.text, std::regex("\n"), "\r\n")), std::nullopt);
}

TEST(Record, IsWrittenAtOnceButForTheRepeatsOfAHeldKeyAndTheMovesOfTheStylus)
{
    Session session;
    session.host.key('L', true, 5);
    for (int i = 0; i < 60; ++i) {
        session.host.key('L', true, 50);
    }
    session.host.give({.kind = Kind::StylusDown, .x = 1, .y = 2}, 10);
    for (int i = 0; i < 100; ++i) {
        session.host.give({.kind = Kind::StylusMove, .x = i, .y = 2}, 25);
        session.host.key('L', true);
    }
    session.host.key('L', false);
    session.host.give({.kind = Kind::Close}, 3900);
    session.play();
    const auto presses = std::ranges::count_if(session.parts, [](const std::string &part) {
        return part.starts_with("wait ") && part.find("key 76 down") != std::string::npos;
    });
    EXPECT_LE(presses, 1 + 5) << "at once, then at most once a second";
    EXPECT_EQ(std::ranges::count(session.parts, "wait 10\nstylus down 1 2\n"), 1);
    EXPECT_LE(session.parts.size(), 16U);
    EXPECT_EQ(play(session.text), std::nullopt);
}

TEST(Record, EndsWhereTheDiskIsFullAndTheGameGoesOn)
{
    Session session;
    session.room = 190;
    session.giveDay();
    session.play();
    EXPECT_EQ(session.host.reports,
              std::vector<std::string>{"the record ends here: the disk is full"});
    EXPECT_EQ(std::ranges::count(session.program.heard, '\n'), 4);
    EXPECT_EQ(session.host.saves, 1);
    EXPECT_FALSE(record::read(session.text).problem);

    Session endless;
    for (int i = 0; i < 600000; ++i) {
        endless.host.give({.kind = Kind::Text, .text = u'a'});
    }
    endless.host.give({.kind = Kind::Close}, 30);
    endless.play();
    EXPECT_EQ(endless.host.reports, std::vector<std::string>{"the record ends here: it has 4 MB"});
    EXPECT_FALSE(record::read(endless.text).problem);
}

TEST(Record, OfAMachineThatSleptPlaysAgain)
{
    Session session;
    session.host.key('C', true, 60);
    session.host.act([&] { session.host.clock += 7000; }, 3); // in the middle of a sleep
    session.host.key('C', false);
    session.host.key('D', true, 7);
    session.host.give({.kind = Kind::Close}, 60);
    session.play();
    EXPECT_NE(session.text.find("\njump 70"), std::string::npos) << session.text;
    EXPECT_EQ(play(session.text), std::nullopt) << session.text;
}

TEST(Record, NamesTheFirstDigestAfterAFlippedBit)
{
    Session session;
    for (int i = 0; i < 40; ++i) {
        session.host.key(i % 5 == 0 ? 'C' : 'D', i % 2 == 0,
                         static_cast<unsigned>(i == 0 ? 5 : i * 75));
    }
    session.host.give({.kind = Kind::Close}, 3000);
    session.play();
    const auto record = record::read(session.text).value;
    std::minstd_rand dice(1);
    const auto below = [&](std::uint64_t n) { return static_cast<std::uint32_t>(dice() % n); };
    for (int i = 0; i < 200; ++i) {
        const std::uint32_t tick = below(record.length / 25) + 1;
        const auto named = std::ranges::find_if(record.steps, [&](const record::Step &step) {
            return step.kind == record::Step::Kind::Digest && step.at >= tick * 25;
        });
        const auto difference = play(session.text, [&](SmallProgram &program) {
            program.state ^= program.ticks == tick ? 1U << below(32) : 0;
        });
        EXPECT_EQ(difference, "differs at " + record::momentText(named->at) + ", line " +
                                  std::to_string(named->line))
            << "tick " << tick;
    }
}

TEST(Record, IsRefusedWithTheLineAndTheReason)
{
    const std::string line(201, 'x');
    const std::pair<std::string, std::string> cases[] = {
        {"", "it does not begin as a record does"},
        {"# record 2\n", "line 1: a format that this version does not know"},
        {"# record 1\n# clock 4294967296\n", "line 2: the clock must be"},
        {"# record 1\n# store 3\n#: QUJ=\nwait 1\n", "line 2: the store is not complete"},
        {"# record 1\n# store 3\n#: QU*D\n", "line 2: the store is not complete"},
        {"# record 1\nshot /tmp/x.png\n", "line 2: a record cannot hold \"shot\""},
        {"# record 1\n\ntap 1 1\n", "line 3: a record cannot hold \"tap\""},
        {"# record 1\nkey 255 down\n", "line 2: key: CODE must be a number from 1 to 254"},
        {"# record 1\nkey 5 down 1\n", "line 2: key: only ctrl, shift and esc"},
        {"# record 1\nhelp me\n", "line 2: help: \"me\" is too much"},
        {"# record 1\nwait -1\n", "line 2: wait: MS must be"},
        {"# record 1\nwait 86400000\njump 1\n", "line 3: a record has at most 24 hours"},
        {"# record 1\n# digest 12\n", "line 2: two numbers of 16 hexadecimal digits"},
        {"# record 1\n# closed\nwait 1\n", "line 3: nothing comes after \"# closed\""},
        {"# record 1\n# " + line + "\n", "line 2: the line is too long"},
        {"# record 1\n" + std::string(std::size_t{4} << 20U, '\n'), "it is larger than 4 MB"},
    };
    for (const auto &[text, reason] : cases) {
        const auto problem = record::read(text).problem.value_or("accepted");
        EXPECT_TRUE(problem.starts_with(reason)) << text.substr(0, 100) << ": " << problem;
    }
    const auto cut = record::read("# record 1\nwait 5\r\nkey 3", true);
    EXPECT_EQ(cut.value.length, 5U) << cut.problem.value_or("");
}

} // namespace
