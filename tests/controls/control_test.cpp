// The controls as a user meets them: with stylus and keys, in a dialog.
#include "controls/run_dialog.h"
#include "user/icon.h"

namespace {

struct Control : ProgramTest
{
    void expectSelected(int combo, int index)
    {
        host.act([=] {
            EXPECT_EQ(SendDlgItemMessageW(GetActiveWindow(), combo, CB_GETCURSEL, 0, 0), index);
        });
    }
    void expectList(int combo, bool open)
    {
        host.act([=] { EXPECT_EQ(inspect::openListItem(combo, 4).has_value(), open); });
    }
};

TEST_F(Control, EditBoxTakesTextAndKeys)
{
    // < > are arrows, { } with Shift, [ ] Home and End, # Delete, ^ Backspace, ~ Tab; the rest is
    // typed
    const std::map<char, std::pair<int, bool>> keys = {
        {'<', {VK_LEFT, false}},   {'>', {VK_RIGHT, false}}, {'[', {VK_HOME, false}},
        {']', {VK_END, false}},    {'{', {VK_LEFT, true}},   {'}', {VK_RIGHT, true}},
        {'#', {VK_DELETE, false}}, {'^', {VK_BACK, false}},  {'~', {VK_TAB, false}}};
    const std::pair<std::string, std::u16string> cases[] = {
        {"ann bell", u"Ann bell"}, // the first letter only
        {" ann", u" Ann"},         {"abc[x", u"XAbc"},   {"abc<x", u"Abxc"}, {"abc<<x]y", u"Axbcy"},
        {"abc^^", u"A"},           {"^abc", u"Abc"},     {"abc[#", u"bc"},   {"abc#", u"Abc"},
        {"abc{{x", u"Ax"},                               // a selection is replaced
        {"abc[}}^", u"c"},                               // and erased
        {"abc[}}}d", u"D"},        {"abc{{<x", u"Axbc"}, // an arrow goes to the end of a selection
        {"abc[}}>x", u"Abxc"},     {"abc~x", u"X"},      // Tab selects the text that it comes to
    };
    for (const auto &[typed, expected] : cases) {
        host.act([] { SendDlgItemMessageW(GetActiveWindow(), 10, WM_USER + 1, FALSE, 0); });
        for (const char unit : typed) {
            const auto key = keys.find(unit);
            if (key != keys.end()) {
                host.press(key->second.first, key->second.second);
            } else {
                host.type(std::u16string(1, static_cast<char16_t>(unit)));
            }
        }
        host.act([&wanted = expected, &how = typed] { EXPECT_EQ(textOf(10), wanted) << how; });
        end();
        runDialog(1, owner);
    }
}

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

INT_PTR fillCombos(HWND dialog, UINT message, WPARAM, LPARAM)
{
    for (int id = 20; message == WM_INITDIALOG && id <= 21; ++id) {
        for (const LPCWSTR text : {u"zero", u"one", u"two", u"three", u"four"}) {
            SendDlgItemMessageW(dialog, id, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
        }
        SendDlgItemMessageW(dialog, id, CB_SETCURSEL, 0, 0);
    }
    return FALSE;
}

TEST_F(Control, ComboBoxIsChosenFromByStylus)
{
    host.tapAt(inspect::control, 20);
    expectList(20, true);
    host.act([] { EXPECT_FALSE(inspect::openListItem(20, 5)); });
    host.tapAt(inspect::openListItem, 20, 1);
    expectList(20, false);
    expectSelected(20, 1);
    expectSelected(21, 0);
    host.act([] { EXPECT_EQ(textOf(20), u"one"); });
    host.tapAt(inspect::control, 20);
    host.tapAt(inspect::control, 21); // elsewhere: the first list closes, the other opens
    expectList(20, false);
    expectList(21, true);
    expectSelected(20, 1);
    end();
    runDialog(2, owner, fillCombos);
}

TEST_F(Control, ComboBoxIsChosenFromByDraggingAndKeys)
{
    host.act([&] {
        const auto [x, y] = inspect::control(21).value().centre;
        host.stylus(host::Event::Kind::StylusDown, x, y);
        host.stylus(host::Event::Kind::StylusMove, x, y + 20);
        host.stylus(host::Event::Kind::StylusUp, x, y + 34);
    });
    expectSelected(21, 1);
    const std::pair<std::vector<int>, int> cases[] = {
        {{VK_DOWN, VK_F4, VK_END}, 2}, {{VK_RETURN}, 4}, {{VK_F4, VK_HOME, VK_ESCAPE}, 4}};
    for (const auto &[keys, selected] : cases) {
        for (const int key : keys) {
            host.press(key);
        }
        expectSelected(21, selected);
    }
    expectList(21, false);
    end();
    runDialog(2, owner, fillCombos);
}

TEST_F(Control, ButtonIsClickedWhereTheStylusIsLifted)
{
    std::vector<int> clicks;
    host.tapAt(inspect::control, 30);
    host.tapAt(inspect::control, 31); // disabled
    host.stylus(host::Event::Kind::StylusDown, 30, 50);
    host.stylus(host::Event::Kind::StylusMove, 30, 200);
    host.stylus(host::Event::Kind::StylusUp, 30, 200);
    host.press(VK_SPACE);
    end();
    runDialog(3, owner, [&](HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) -> INT_PTR {
        if (message == WM_COMMAND) {
            clicks.push_back(LOWORD(wParam));
            EXPECT_EQ(static_cast<LPARAM>(GetDlgItem(dialog, 30).value), lParam);
        }
        return FALSE;
    });
    EXPECT_EQ(clicks, (std::vector<int>{30, 30}));
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
