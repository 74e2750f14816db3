// Ranks, defaults and names of the tables.
#include "frontend/high_score_table.h"

#include <string>

#include <gtest/gtest.h>

#include "resources/program_resources.h"
#include "resources/resource.h"
#include "support/fake_host.h"

namespace {

TEST(HighScoreTable, RanksBelowEqualScoresAndDropsTheLast)
{
    const SwitchedOn handheld(programResources());
    HighScoreTable table{};
    EXPECT_EQ(table.rankOf(0), -1);
    EXPECT_EQ(table.rankOf(1), 0);
    table.loadDefaults(IDS_DEFAULT_SCORES);
    EXPECT_EQ(table.entries[7].level, 1); // a line feed follows it
    const std::pair<int, int> ranks[] = {{0, -1},   {500, -1},  {501, 7},
                                         {4000, 4}, {10000, 1}, {10001, 0}};
    for (const auto &[score, rank] : ranks) {
        EXPECT_EQ(table.rankOf(score), rank) << score;
    }

    EXPECT_EQ(table.insert(u"Twelve chars", 4500, 33, 3), 3);
    EXPECT_EQ(table.insert(u"Late", 1000, 1, 1), -1);
    EXPECT_EQ(table.entries[3].lines, 33);
    const std::pair<std::size_t, std::u16string> names[] = {
        {2, u"Wend"}, {3, u"Twelve char"}, {4, u"Odalys"}, {7, u"Garo"}};
    for (const auto &[rank, name] : names) {
        EXPECT_EQ(std::u16string(table.entries[rank].name.data()), name);
    }
}

} // namespace
