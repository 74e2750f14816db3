// Message boxes: which buttons they have, and which keys and taps answer them.
#include "user/program_test.h"

namespace {

TEST(MessageBox, KeysAnswerByTheButtonsThatThereAre)
{
    struct Case
    {
        UINT type;
        std::vector<int> keys;
        int answer; // 0: none of the keys is one
    };
    const Case cases[] = {
        {MB_OK, {VK_RETURN}, IDOK},
        {MB_OK, {VK_ESCAPE}, IDOK},
        {MB_OKCANCEL | MB_ICONINFORMATION, {VK_RETURN}, IDOK},
        {MB_OKCANCEL, {VK_ESCAPE}, IDCANCEL},
        {MB_OKCANCEL, {VK_RIGHT, VK_RETURN}, IDCANCEL},
        {MB_OKCANCEL, {'Y', 'N'}, 0},
        {MB_YESNO | MB_ICONQUESTION, {VK_RETURN}, IDYES},
        {MB_YESNO, {VK_TAB, VK_RETURN}, IDNO},
        {MB_YESNO, {VK_LEFT, VK_RETURN}, IDNO},
        {MB_YESNO, {'Y'}, IDYES},
        {MB_YESNO, {'N'}, IDNO},
        {MB_YESNO, {VK_ESCAPE}, 0},
    };
    SwitchedOn on; // no window of the program is needed
    for (const Case &each : cases) {
        for (const int key : each.keys) {
            on.host.key(key, true);
            on.host.key(key, false);
        }
        EXPECT_EQ(MessageBoxW({}, u"Text", u"Caption", each.type), each.answer)
            << each.type << " " << each.keys[0];
        on.host.run();
    }
    EXPECT_EQ(on.host.boxes.size(), std::size(cases));
}

TEST_F(ProgramTest, MessageBoxIsModalAndFitsTheScreen)
{
    recorder.noted = {WM_ACTIVATE, WM_LBUTTONDOWN};
    host.tap(10, 40);
    host.act([&] {
        RECT rect;
        GetWindowRect(GetActiveWindow(), &rect);
        EXPECT_TRUE(rect.left >= 0 && rect.right <= 240 && rect.top >= 26 && rect.bottom <= 320);
        EXPECT_EQ(recorder.takeLog(), Log{"A:activate 0 -"});
    });
    host.tapAt(inspect::control, IDNO);
    const std::u16string text(100, u'w');
    EXPECT_EQ(MessageBoxW(owner, (text + u" and more words").c_str(), u"Caption", MB_YESNO), IDNO);
    EXPECT_EQ(recorder.takeLog(), Log{"A:activate 1 -"});
}

} // namespace
