// A test with resources of its own, a program of one window, and a user before it.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <utility>
#include <vector>

#include "aygshell.h"
#include "user/recorder.h"
#include "user/user_script.h"

class ProgramTest : public testing::Test
{
protected:
    explicit ProgramTest(std::vector<std::byte> resources) : image(std::move(resources))
    {
        SHInitExtraControls();
    }

    std::vector<std::byte> image;
    Recorder recorder{image};
    FakeHost &host = recorder.host;
    UserScript user{host};
    HWND owner = recorder.window('A', {0, 26, 240, 320});
};
