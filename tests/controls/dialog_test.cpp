// Dialogs: their templates, their modal loops, the keys that they handle.
#include <utility>

#include "controls/dialog_template.h"
#include "controls/run_dialog.h"
#include "gx.h"

namespace {

using Kind = host::Event::Kind;

using Dialog = ProgramTest;

TEST(DialogTemplate, TurnsUnitsToPixels)
{
    for (const auto &[units, across, down] :
         {std::tuple(160, 240, 260), {125, 188, 203}, {7, 11, 11}, {-10, -15, -16}})
    {
        EXPECT_EQ(controls::pixelsAcross(units), across);
        EXPECT_EQ(controls::pixelsDown(units), down);
    }
}

TEST(DialogTemplate, IsReadButNotWhenItIsCutShort)
{
    const std::uint16_t words[] = {0x40, 0x8000, 0, 0x8000, 1,      0,      0,     20,     8,   0,
                                   0,    u'C',   0, 8,      u'S',   0,      0x00E, 0x5000, 0,   0,
                                   4,    8,      8, 16,     0xFFFF, 0xFFFF, 0x82,  0xFFFF, 122, 0};
    const auto bytes = std::as_bytes(std::span(words));
    const auto read = controls::parseTemplate(bytes).value();
    EXPECT_EQ(read.caption, u"C");
    EXPECT_EQ(read.exStyle, 0x80000000U);
    EXPECT_EQ(read.rect.right, 30);
    ASSERT_EQ(read.controls.size(), 1U);
    const controls::ControlTemplate &control = read.controls[0];
    EXPECT_EQ(control.className + control.text, u"STATIC#122");
    EXPECT_EQ(control.id, -1);
    EXPECT_EQ(control.style, 0x5000000EU);
    EXPECT_EQ(control.rect, (RECT{6, 13, 18, 39}));
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        EXPECT_FALSE(controls::parseTemplate(bytes.first(size))) << size;
    }
}

TEST_F(Dialog, DisablesItsOwnerAndGivesTheActivationBack)
{
    recorder.noted = {WM_ACTIVATE};
    host.act([&] {
        const HWND dialog = GetActiveWindow();
        EXPECT_EQ(GetFocus(), GetDlgItem(dialog, 10));
        EXPECT_EQ(recorder.takeLog(), Log{"A:activate 0 -"});
        EXPECT_FALSE(IsWindowEnabled(owner));
        EXPECT_TRUE(EndDialog(dialog, 5));
        EXPECT_TRUE(EndDialog(dialog, 6)); // the first result counts
        EXPECT_TRUE(IsWindow(dialog));
    });
    const auto procedure = [&](HWND dialog, UINT message, WPARAM focus, LPARAM) -> INT_PTR {
        if (message == WM_INITDIALOG) {
            EXPECT_EQ(focus, GetDlgItem(dialog, 10).value);
            EXPECT_FALSE(IsWindowEnabled(owner));
            EXPECT_FALSE(IsWindowVisible(dialog));
            EXPECT_TRUE(recorder.takeLog().empty());
        }
        return FALSE;
    };
    EXPECT_EQ(runDialog(4, owner, procedure), 5);
    EXPECT_EQ(recorder.takeLog(), Log{"A:activate 1 -"});
    EXPECT_EQ(GetActiveWindow(), owner);
    EXPECT_EQ(DialogBoxIndirectParamW({}, nullptr, owner, handledDialog, 0), -1);
    EXPECT_TRUE(IsWindowEnabled(owner));
}

TEST_F(Dialog, GivesTheFocusBackHoweverItGoes)
{
    const auto goes = [&](auto end, UINT when) {
        runDialog(5, owner, [&](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
            return message == when ? end(dialog) : FALSE;
        });
        EXPECT_EQ(GetActiveWindow(), owner);
        EXPECT_EQ(GetFocus(), owner);
    };
    goes([](HWND dialog) { return EndDialog(dialog, 1); }, WM_INITDIALOG);
    goes([](HWND dialog) { return DestroyWindow(dialog); }, WM_INITDIALOG);
    goes([](HWND dialog) { return DestroyWindow(dialog); }, WM_SETFOCUS);
}

TEST_F(Dialog, KeysMoveTheFocusAndPressButtons)
{
    struct Case
    {
        std::vector<int> keys; // negative: with Shift
        int focus;             // or 0, and
        int result;            // the button that ended the dialog
    };
    const Case cases[] = {
        {{VK_TAB}, 12, 100},
        {{VK_TAB, VK_TAB, VK_TAB, VK_TAB}, 10, 100},
        {{-VK_TAB}, IDOK, 100},
        {{VK_RIGHT}, 12, 100},
        {{VK_RIGHT, VK_RIGHT}, 12, 100}, // an edit box keeps the arrows
        {{VK_LEFT}, IDOK, 100},
        {{'A'}, 10, 100},
        {{VK_RETURN}, 0, 10},           // the button with the focus
        {{VK_TAB, VK_RETURN}, 0, IDOK}, // the default button
        {{VK_TAB, VK_ESCAPE}, 0, IDCANCEL},
        {{VK_SPACE}, 0, 10},
    };
    for (const Case &each : cases) {
        for (const int key : each.keys) {
            host.press(std::abs(key), key < 0);
        }
        int focus = 0;
        host.act([&] { focus = GetDlgCtrlID(GetFocus()); });
        end(100);
        EXPECT_EQ(runDialog(4, owner, endByCommand), each.result) << each.keys[0];
        EXPECT_EQ(focus, each.focus) << each.keys[0];
        host.run();
    }
}

/// Esc, and not the button that it stands for, unless the page asks for every key. It is asked with
/// the key in the question.
TEST_F(Dialog, EscCancelsAndIsNotPolledAsItsButton)
{
    GXOpenInput();
    for (const bool wantsAllKeys : {false, true}) {
        std::vector<WPARAM> taken;
        host.give({.kind = Kind::KeyDown, .key = VK_APP1, .escape = true});
        end();
        runDialog(5, owner, [&](HWND page, UINT message, WPARAM wParam, LPARAM lParam) -> INT_PTR {
            const auto *asked = reinterpret_cast<const MSG *>(lParam);
            if (message == WM_KEYDOWN || message == WM_COMMAND ||
                (message == WM_GETDLGCODE && asked && asked->message == WM_KEYDOWN))
            {
                taken.push_back(LOWORD(wParam));
            }
            SetWindowLongW(page, DWL_MSGRESULT, DLGC_WANTALLKEYS);
            return message == WM_GETDLGCODE && wantsAllKeys ? TRUE : FALSE;
        });
        EXPECT_EQ(taken, wantsAllKeys ? (std::vector<WPARAM>{VK_APP1, VK_APP1})
                                      : (std::vector<WPARAM>{VK_ESCAPE, IDCANCEL}));
        EXPECT_EQ(GetAsyncKeyState(VK_APP1) != 0, wantsAllKeys);
        host.run();
    }
    GXCloseInput();
}

TEST_F(Dialog, EndsWhileAnotherProgramIsAtTheFront)
{
    host.give({.kind = Kind::Background});
    const INT_PTR result =
        runDialog(5, owner, [](HWND page, UINT message, WPARAM wParam, LPARAM) -> INT_PTR {
            return message == WM_ACTIVATE && wParam == WA_INACTIVE ? EndDialog(page, 3) : FALSE;
        });
    EXPECT_EQ(result, 3);
    EXPECT_FALSE(GetActiveWindow());
    host.give({.kind = Kind::Foreground});
    host.run();
    EXPECT_EQ(GetActiveWindow(), owner);
}

TEST_F(Dialog, QuittingAndClosingEndEveryLoop)
{
    const auto nest = [&](const std::function<void()> &action) {
        bool asked = false;
        host.act(action);
        return runDialog(5, owner, [&](HWND page, UINT message, WPARAM, LPARAM) -> INT_PTR {
            if (message == WM_SETFOCUS && !std::exchange(asked, true)) {
                EXPECT_EQ(MessageBoxW(page, u"", u"", MB_OK), 0);
            }
            return FALSE;
        });
    };
    MSG message;
    EXPECT_EQ(nest([] { PostQuitMessage(7); }), 0);
    EXPECT_FALSE(GetMessageW(&message, {}, 0, 0));
    EXPECT_EQ(message.wParam, 7U);
    EXPECT_TRUE(IsWindowEnabled(owner));

    EXPECT_EQ(nest([&] { DestroyWindow(owner); }), 0);
    EXPECT_FALSE(GetActiveWindow());
}

TEST_F(Dialog, OfAMessageIsModalAndFitsTheScreen)
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
