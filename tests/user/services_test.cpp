// The base services: text functions and the help viewer.
#include <gtest/gtest.h>

#include "support/fake_host.h"
#include "winbase.h"

TEST(Text, NumbersAreReadAsFarAsTheyGo)
{
    constexpr int most = std::numeric_limits<int>::max();
    const std::pair<LPCWSTR, int> cases[] = {{u"42", 42},
                                             {u" \t-17x9", -17},
                                             {u"+3 4", 3},
                                             {u"- 5", 0},
                                             {u"", 0},
                                             {u"x", 0},
                                             {u"2147483647", most},
                                             {u"99999999999999999999", most},
                                             {u"-99999999999", -most - 1}};
    for (const auto &[text, value] : cases) {
        EXPECT_EQ(_wtoi(text), value) << std::u16string_view(text).size();
    }
}

TEST(Text, IsFormatted)
{
    WCHAR buffer[1024];
    EXPECT_EQ(std::u16string(_itow(-2147483647 - 1, buffer, 10)), u"-2147483648");
    const int length =
        wsprintfW(buffer, u"%d|%02d|%05d|%4d|%2d|%c|%%|%", -3, 7, -12, 34, -567, u'x');
    EXPECT_EQ(std::u16string(buffer), u"-3|07|-0012|  34|-567|x|%|");
    EXPECT_EQ(static_cast<std::size_t>(length), std::u16string_view(buffer).size());
    EXPECT_EQ(wsprintfW(buffer, u"%2000d%d", 1, 2), 1023);

    WCHAR small[4];
    EXPECT_EQ(std::u16string(lstrcpynW(small, u"abcdef", 4)), u"abc");
    EXPECT_EQ(lstrcpynW(small, u"abc", 0), nullptr);
}

TEST(Processes, TheHelpViewerGetsThePageOfTheProgram)
{
    SwitchedOn handheld(testResources());
    const auto start = [](LPCWSTR program, LPCWSTR commandLine) {
        return CreateProcessW(program, commandLine, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                              nullptr, nullptr);
    };
    EXPECT_TRUE(start(u"peghelp.exe", u"file:glimra.htm#Main_Contents"));
    EXPECT_EQ(handheld.host.help.at(0), u"peghelp.exe file:glimra.htm#Main_Contents|Main_Contents");
    EXPECT_EQ(handheld.host.helpSize, 20U);
    EXPECT_FALSE(start(u"peghelp.exe", u"file:other.htm"));
    EXPECT_FALSE(start(u"calc.exe", u"file:glimra.htm"));
    EXPECT_FALSE(start(u"peghelp.exe", nullptr));
    handheld.host.helpWorks = false;
    EXPECT_FALSE(start(u"peghelp.exe", u"file:glimra.htm"));
}
