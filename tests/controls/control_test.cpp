// The controls as a user meets them: with stylus and keys, in a dialog.
#include "controls/dialog_words.h"
#include "user/icon.h"
#include "user/program_test.h"

namespace {

constexpr DWORD edit = WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL;
constexpr DWORD combo = WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST;

/// 1 to 3: a dialog with a CAPEDIT, with two combo boxes, with buttons.
std::vector<std::byte> makeImage()
{
    ResourceImage image;
    image.add(
        5, 1,
        DialogWords(WS_POPUP, 0, 125, 69, u"").add(u"CAPEDIT", edit, {0, 0, 60, 13}, 10).words);
    image.add(5, 2,
              DialogWords(WS_POPUP, 0, 160, 160, u"")
                  .add(u"COMBOBOX", combo, {10, 10, 60, 40}, 20)
                  .add(u"COMBOBOX", combo, {10, 90, 60, 40}, 21)
                  .words);
    image.add(5, 3,
              DialogWords(WS_POPUP, 0, 160, 160, u"")
                  .add(u"BUTTON", WS_TABSTOP, {10, 10, 50, 12}, 30, u"Go")
                  .add(u"BUTTON", WS_TABSTOP | WS_DISABLED, {10, 30, 50, 12}, 31, u"Stay")
                  .words);
    return image.bytes;
}

struct Control : ProgramTest
{
    Control() : ProgramTest(makeImage()) {}

    void look(std::function<void(HWND dialog)> action)
    {
        host.act([=] { action(GetActiveWindow()); });
    }
};

TEST_F(Control, EditBoxTakesTextAndKeys)
{
    // < > are arrows, { } with Shift, [ ] Home and End, # Delete, ^ Backspace; the rest is typed
    const std::map<char, std::pair<int, bool>> keys = {
        {'<', {VK_LEFT, false}},   {'>', {VK_RIGHT, false}}, {'[', {VK_HOME, false}},
        {']', {VK_END, false}},    {'{', {VK_LEFT, true}},   {'}', {VK_RIGHT, true}},
        {'#', {VK_DELETE, false}}, {'^', {VK_BACK, false}}};
    const std::pair<std::string, std::u16string> cases[] = {
        {"ann bell", u"Ann bell"}, // the first letter only
        {" ann", u" Ann"},         {"abc[x", u"XAbc"},   {"abc<x", u"Abxc"}, {"abc<<x]y", u"Axbcy"},
        {"abc^^", u"A"},           {"^abc", u"Abc"},     {"abc[#", u"bc"},   {"abc#", u"Abc"},
        {"abc{{x", u"Ax"},                               // a selection is replaced
        {"abc[}}^", u"c"},                               // and erased
        {"abc[}}}d", u"D"},        {"abc{{<x", u"Axbc"}, // an arrow goes to the end of a selection
        {"abc[}}>x", u"Abxc"},
    };
    for (const auto &[typed, expected] : cases) {
        look([](HWND dialog) { SendDlgItemMessageW(dialog, 10, WM_USER + 1, FALSE, 0); });
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
    host.type(u"\u00E9\u03B1\u0436 ab"); // the first of every word becomes a capital by default
    host.type(u"cdefghijklmnopqrstuvwxyz0123456789");
    host.stylus(host::Event::Kind::StylusDown, 2, 36);
    host.stylus(host::Event::Kind::StylusMove, 89, 36);
    look([](HWND dialog) {
        WCHAR text[12];
        EXPECT_EQ(GetDlgItemTextW(dialog, 10, text, 12), 11U);
        EXPECT_EQ(text, std::u16string(u"\u00C9\u03B1\u0436 Abcdefg"));
        EXPECT_EQ(textOf(10).size(), 40U);
    });
    host.stylus(host::Event::Kind::StylusUp, 89, 36);
    host.type(u"!"); // replaces what is selected
    look([](HWND) {
        const std::u16string text = textOf(10);
        EXPECT_GT(text.size(), 6U); // the beginning had been scrolled out
        EXPECT_LT(text.size(), 30U);
        EXPECT_EQ(text, std::u16string(u"\u00C9\u03B1\u0436 Abcdefghijklmnopqrstuvwxyz0123456789")
                                .substr(0, text.size() - 1) +
                            u"!");
    });
    end();
    runDialog(1, owner);
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

LRESULT selection(HWND dialog, int id)
{
    return SendDlgItemMessageW(dialog, id, CB_GETCURSEL, 0, 0);
}

TEST_F(Control, ComboBoxIsChosenFromByStylus)
{
    host.tapAt(inspect::control, 20);
    look([](HWND dialog) {
        EXPECT_TRUE(inspect::openListItem(20, 4));
        EXPECT_FALSE(inspect::openListItem(20, 5));
        EXPECT_EQ(GetActiveWindow(), dialog);
    });
    host.tapAt(inspect::openListItem, 20, 1);
    look([](HWND dialog) {
        EXPECT_EQ(selection(dialog, 20), 1);
        EXPECT_EQ(selection(dialog, 21), 0);
        EXPECT_FALSE(inspect::openListItem(20, 1));
        EXPECT_EQ(textOf(20), u"one");
    });
    host.tapAt(inspect::control, 20);
    host.tapAt(inspect::control, 21); // elsewhere: the first list closes, the other opens
    look([](HWND dialog) {
        EXPECT_FALSE(inspect::openListItem(20, 1));
        EXPECT_TRUE(inspect::openListItem(21, 1));
        EXPECT_EQ(selection(dialog, 20), 1);
    });
    end();
    runDialog(2, owner, fillCombos);
}

TEST_F(Control, ComboBoxIsChosenFromByDraggingAndKeys)
{
    look([&](HWND) {
        const auto field = inspect::control(21);
        ASSERT_TRUE(field);
        host.stylus(host::Event::Kind::StylusDown, field->centre.x, field->centre.y);
        host.stylus(host::Event::Kind::StylusMove, field->centre.x, field->centre.y + 20);
        host.stylus(host::Event::Kind::StylusUp, field->centre.x, field->centre.y + 34);
    });
    look([](HWND dialog) { EXPECT_EQ(selection(dialog, 21), 1); });
    host.press(VK_DOWN);
    host.press(VK_F4);
    host.press(VK_END);
    look([](HWND dialog) { EXPECT_EQ(selection(dialog, 21), 2); });
    host.press(VK_RETURN);
    look([](HWND dialog) { EXPECT_EQ(selection(dialog, 21), 4); });
    host.press(VK_F4);
    host.press(VK_HOME);
    host.press(VK_ESCAPE);
    look([](HWND dialog) {
        EXPECT_EQ(selection(dialog, 21), 4);
        EXPECT_FALSE(inspect::openListItem(21, 4));
    });
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
    ResourceImage image;
    // 1 by 1, and 2 by 1 with its right pixel masked out
    image.add(
        14, 1,
        std::vector<std::uint16_t>{0, 1, 2, 0x0101, 0, 1, 4, 60, 0, 1, 0x0102, 0, 1, 4, 60, 0, 2});
    std::vector<std::uint16_t> picture = {40, 0, 2,      0,    2,      0, 1,      8, 0, 0,
                                          0,  0, 0,      0,    0,      0, 2,      0, 0, 0,
                                          0,  0, 0x3322, 0x11, 0x0001, 0, 0x0040, 0};
    image.add(3, 2, picture);
    picture.resize(picture.size() - 2);
    image.add(3, 3, picture);
    image.add(14, 3, std::vector<std::uint16_t>{0, 1, 1, 0x0102, 0, 1, 4, 60, 0, 3});
    SwitchedOn on(image.bytes);
    const host::Icon icon = user::iconPicture(LoadIconW({}, MAKEINTRESOURCEW(1)));
    EXPECT_EQ(icon.width, 2);
    EXPECT_EQ(icon.height, 1);
    EXPECT_EQ(icon.rgba, (std::vector<std::uint8_t>{0x11, 0x33, 0x22, 0xFF, 0, 0, 0, 0}));
    EXPECT_TRUE(user::iconPicture(LoadIconW({}, MAKEINTRESOURCEW(3))).rgba.empty()); // cut short
    EXPECT_FALSE(LoadIconW({}, MAKEINTRESOURCEW(2)));
}

} // namespace
