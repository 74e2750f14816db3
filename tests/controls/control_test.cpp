// The controls as a user meets them: with stylus and keys, in a dialog.
#include "controls/run_dialog.h"
#include "user/icon.h"

namespace {

using Control = ProgramTest;

TEST_F(Control, EditBoxIsUsedWithTheStylusAndScrolls)
{
    const std::u16string whole = u"\u00C9\u03B1\u0436 Abcdefghijklmnopqrstuvwxyz0123456789";
    host.type(u"\u00E9\u03B1\u0436 ab"); // the first of every word becomes a capital by default
    host.type(u"cdefghijklmnopqrstuvwxyz0123456789");
    host.stylus(host::Event::Kind::StylusDown, 2, 36);
    host.stylus(host::Event::Kind::StylusMove, 89, 36);
    host.act([&] {
        EXPECT_EQ(textOf(10), whole);
        EXPECT_TRUE(host.textWanted);
        WCHAR text[12];
        EXPECT_EQ(GetDlgItemTextW(GetActiveWindow(), 10, text, 12), 11U);
        EXPECT_EQ(text, whole.substr(0, 11));
    });
    host.stylus(host::Event::Kind::StylusUp, 89, 36);
    host.type(u"!"); // replaces what is selected
    host.act([&] {
        const std::size_t kept = textOf(10).size() - 1; // the beginning had been scrolled out
        EXPECT_TRUE(kept > 5 && kept < 29) << kept;
        EXPECT_EQ(textOf(10), whole.substr(0, kept) + u"!");
    });
    end();
    runDialog(1, owner);
    EXPECT_FALSE(host.textWanted);
}

TEST(Icon, GivesTheHostItsLargestPicture)
{
    SwitchedOn on(testResources());
    const host::Icon icon = user::iconPicture(LoadIconW({}, MAKEINTRESOURCEW(1)));
    EXPECT_EQ(std::pair(icon.width, icon.height), std::pair(2, 1));
    EXPECT_EQ(icon.rgba, (std::vector<std::uint8_t>{0x11, 0x33, 0x22, 0xFF, 0, 0, 0, 0}));
    EXPECT_TRUE(user::iconPicture(LoadIconW({}, MAKEINTRESOURCEW(3))).rgba.empty()); // cut short
    EXPECT_FALSE(LoadIconW({}, MAKEINTRESOURCEW(2)));
}

} // namespace
