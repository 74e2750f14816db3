// Tests on a handheld with a user before it.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "aygshell.h"
#include "pilot/inspect.h"
#include "user/recorder.h"

struct HandheldTest : testing::Test
{
    /// What is noted while all that the test has given is handled and the time passes.
    Log run(unsigned milliseconds = 0)
    {
        host.run(milliseconds);
        return recorder.takeLog();
    }

    Recorder recorder;
    FakeHost &host = recorder.host;
};

/// A program of one window, which owns the dialogs.
struct ProgramTest : HandheldTest
{
    ProgramTest() { SHInitExtraControls(); }

    /// Ends the dialog that is open then.
    void end(INT_PTR result = 0)
    {
        host.act([=] { EndDialog(GetActiveWindow(), result); });
    }
    /// The text of a control of the open dialog.
    static std::u16string textOf(int control)
    {
        WCHAR text[80];
        GetDlgItemTextW(GetActiveWindow(), control, text, 80);
        return text;
    }

    HWND owner = recorder.window('A', {0, 26, 240, 320});
};
