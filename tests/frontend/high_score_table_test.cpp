#include "frontend/high_score_table.h"

#include <string>

#include <gtest/gtest.h>

#include "resources/program_resources.h"
#include "resources/resource.h"
#include "support/fake_host.h"

namespace {

HighScoreTable defaults(UINT stringId)
{
    const SwitchedOn handheld(programResources());
    HighScoreTable table{};
    table.loadDefaults(stringId);
    return table;
}

std::u16string nameOf(const HighScoreTable &table, std::size_t index)
{
    return table.entries[index].name.data();
}

TEST(HighScoreTable, ReadsItsDefaults)
{
    const HighScoreTable table = defaults(IDS_DEFAULT_SCORES);
    EXPECT_EQ(nameOf(table, 0), u"Pell");
    EXPECT_EQ(table.entries[0].score, 10000);
    EXPECT_EQ(nameOf(table, 3), u"Odalys");
    EXPECT_EQ(table.entries[3].lines, 50);
    EXPECT_EQ(nameOf(table, 7), u"Nimsa");
    EXPECT_EQ(table.entries[7].level, 1); // a line feed follows it
    EXPECT_EQ(defaults(IDS_DEFAULT_SCORES_40_LINES).entries[0].score, 7000);
}

TEST(HighScoreTable, RanksBelowEqualScores)
{
    const HighScoreTable table = defaults(IDS_DEFAULT_SCORES);
    struct Case
    {
        int score;
        int rank;
    };
    const Case cases[] = {{0, -1}, {500, -1}, {501, 7}, {4000, 4}, {10000, 1}, {10001, 0}};
    for (const Case &c : cases) {
        EXPECT_EQ(table.rankOf(c.score), c.rank) << c.score;
    }
    EXPECT_EQ(HighScoreTable{}.rankOf(0), -1);
    EXPECT_EQ(HighScoreTable{}.rankOf(1), 0);
}

TEST(HighScoreTable, InsertsAndDropsTheLast)
{
    HighScoreTable table = defaults(IDS_DEFAULT_SCORES);
    EXPECT_EQ(table.insert(u"Twelve chars", 4500, 33, 3), 3);
    EXPECT_EQ(nameOf(table, 3), u"Twelve char");
    EXPECT_EQ(table.entries[3].lines, 33);
    EXPECT_EQ(nameOf(table, 2), u"Wend");
    EXPECT_EQ(nameOf(table, 4), u"Odalys");
    EXPECT_EQ(nameOf(table, 7), u"Garo");
    EXPECT_EQ(table.insert(u"Late", 1000, 1, 1), -1);
    EXPECT_EQ(nameOf(table, 7), u"Garo");
}

} // namespace
