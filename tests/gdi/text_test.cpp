// Fonts and text.
#include <cstdlib>
#include <set>
#include <tuple>

#include <gtest/gtest.h>

#include "picture.h"

namespace {

constexpr UINT oneLine = DT_SINGLELINE | DT_NOCLIP | DT_NOPREFIX;

/// A picture with white text on a transparent background, in bold unless `weight` says otherwise.
class Page : public Picture
{
public:
    explicit Page(int height, LONG weight = FW_BOLD) : Picture(240, 80)
    {
        LOGFONTW description{};
        description.lfHeight = height;
        description.lfWeight = weight;
        font_ = CreateFontIndirectW(&description);
        SelectObject(dc, font_);
        SetTextColor(dc, white);
        SetBkMode(dc, TRANSPARENT);
    }
    ~Page()
    {
        SelectObject(dc, GetStockObject(SYSTEM_FONT));
        DeleteObject(font_);
    }
    Page(const Page &) = delete;
    Page &operator=(const Page &) = delete;

    int draw(const char16_t *text, RECT rect, UINT flags) const
    {
        return DrawTextW(dc, text, -1, &rect, flags);
    }
    int width(const char16_t *text) const
    {
        SIZE size{};
        GetTextExtentPoint32W(dc, text, -1, &size);
        return size.cx;
    }

private:
    HFONT font_{};
};

} // namespace

TEST(Text, FontsAreTheNearestOfTheirWeight)
{
    constexpr LONG least = std::numeric_limits<LONG>::min();
    const LONG cases[][3] = {
        {14, 700, 14},  {16, 700, 16}, {32, 700, 32},    {20, 900, 16},
        {100, 700, 32}, {0, 700, 13},  {-29, 700, 32},   {-11, 700, 13},
        {32, 400, 13},  {0, 400, 13},  {least, 700, 32},
    };
    for (const auto &[asked, weight, height] : cases) {
        const Page page(asked, weight);
        SIZE size{};
        ASSERT_TRUE(GetTextExtentPoint32W(page.dc, u"x", 1, &size));
        EXPECT_EQ(size.cy, height) << asked;
    }
}

TEST(Text, AlignsInTheRectangle)
{
    constexpr RECT rect{20, 10, 141, 70};
    for (const int height : {14, 16, 32}) {
        std::vector<RECT> bounds;
        std::set<int> inks;
        for (const UINT flags : {UINT{DT_LEFT}, UINT{DT_CENTER | DT_VCENTER}, UINT{DT_RIGHT}}) {
            const Page page(height);
            EXPECT_EQ(page.draw(u"H0H", rect, oneLine | flags), height);
            bounds.push_back(page.bounds(white));
            inks.insert(page.count(white));
        }
        const auto &[l, c, r] = std::tie(bounds[0], bounds[1], bounds[2]);
        // The ink is in the middle, as far from the left side as from the right.
        EXPECT_LE(std::abs(c.left + c.right - rect.left - rect.right), 2) << height;
        EXPECT_LE(std::abs((l.left - rect.left) - (rect.right - r.right)), 1) << height;
        EXPECT_LE(rect.right - r.right, 3) << height;
        EXPECT_EQ(c.top - l.top, (60 - height) / 2);
        EXPECT_EQ(r.top, l.top);
        EXPECT_EQ(c.right - c.left, l.right - l.left);
        EXPECT_EQ(inks.size(), 1U) << "only the alignment moved the pixels";
    }
}

TEST(Text, ClipsExceptWithNoClip)
{
    constexpr RECT narrow{40, 20, 50, 26};
    const Page clipped(16);
    clipped.draw(u"WWW", narrow, DT_SINGLELINE | DT_CENTER | DT_VCENTER);
    EXPECT_EQ(clipped.bounds(white), narrow);
    const Page free(16);
    free.draw(u"WWW", narrow, oneLine | DT_CENTER | DT_VCENTER);
    const RECT outside = free.bounds(white);
    EXPECT_TRUE(outside.left < 30 && outside.right > 60);
    free.fill({0, 0, narrow.left, 80}, black);
    free.fill({narrow.right, 0, 240, 80}, black);
    EXPECT_EQ(free.rows()[22], clipped.rows()[22]) << "the clipped pixels are those of the whole";
    // At the edge of the bitmap nothing wraps to the other side.
    const Page edge(32);
    edge.draw(u"W", {232, 40, 240, 72}, oneLine);
    EXPECT_GE(edge.bounds(white).left, 232);
    edge.draw(u"W", {-20, -20, 0, 0}, oneLine);
    edge.draw(u"W", {230, 70, 240, 80}, oneLine);
}

TEST(Text, BreaksLinesBetweenWords)
{
    const Page page(16);
    const int word = page.width(u"word");
    RECT rect{10, 10, 10 + page.width(u"word word"), 11};
    EXPECT_EQ(DrawTextW(page.dc, u"word word word\r\nend", -1, &rect, DT_WORDBREAK | DT_CALCRECT),
              48);
    EXPECT_EQ(rect, (RECT{10, 10, 10 + page.width(u"word word"), 58}));
    EXPECT_EQ(page.count(white), 0);
    // A word that is too long stands alone and makes the rectangle wider.
    rect = {0, 0, 5, 5};
    EXPECT_EQ(DrawTextW(page.dc, u"word word", -1, &rect, DT_WORDBREAK | DT_CALCRECT), 32);
    EXPECT_EQ(rect.right, word);
    // Length counts, not the terminator; one line keeps its line ends.
    EXPECT_EQ(DrawTextW(page.dc, u"a\nb\nc", 3, &rect, DT_CALCRECT), 32);
    EXPECT_EQ(DrawTextW(page.dc, u"a\nb", -1, &rect, DT_CALCRECT | DT_SINGLELINE), 16);
}

TEST(Text, AmpersandsUnderline)
{
    const Page page(16);
    RECT rect{};
    DrawTextW(page.dc, u"H&H&&", -1, &rect, DT_CALCRECT | DT_SINGLELINE);
    EXPECT_EQ(rect.right, page.width(u"HH&"));
    DrawTextW(page.dc, u"H&H", -1, &rect, DT_CALCRECT | DT_SINGLELINE | DT_NOPREFIX);
    EXPECT_EQ(rect.right, page.width(u"H&H"));

    page.draw(u"H&H", {0, 0, 100, 16}, DT_SINGLELINE);
    const Page plain(16);
    plain.draw(u"HH", {0, 0, 100, 16}, DT_SINGLELINE);
    EXPECT_EQ(page.count(white) - plain.count(white), page.width(u"H"));
    EXPECT_EQ(page.bounds(white).bottom, plain.bounds(white).bottom + 2);
}

TEST(Text, OpaqueBackgroundFillsTheCell)
{
    const Page page(16);
    SetTextColor(page.dc, red);
    EXPECT_EQ(SetBkMode(page.dc, OPAQUE), TRANSPARENT);
    page.draw(u"Hi", {10, 10, 100, 40}, DT_SINGLELINE);
    EXPECT_EQ(page.bounds(white), (RECT{10, 10, 10 + page.width(u"Hi"), 26}));
    EXPECT_GT(page.count(red), 0);
}

TEST(Text, CharactersItDoesNotHaveAreBoxes)
{
    for (const LONG weight : {FW_NORMAL, FW_BOLD}) {
        const Page unknown(13, weight);
        const Page other(13, weight);
        unknown.draw(u"\u4E2D", {0, 0, 40, 20}, oneLine);
        other.draw(u"\uFFFF", {0, 0, 40, 20}, oneLine);
        EXPECT_GT(unknown.count(white), 15);
        EXPECT_EQ(unknown.rows(), other.rows());
        for (const char16_t known : std::u16string(u"Aß\u017Eώя–—‘’“”…•€")) {
            const Page page(13, weight);
            page.draw(std::u16string(1, known).c_str(), {0, 0, 40, 20}, oneLine);
            EXPECT_NE(page.rows(), other.rows()) << unsigned{known};
            EXPECT_GT(page.count(white), 0) << unsigned{known};
        }
    }
}
