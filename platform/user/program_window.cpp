// Notes which window is the program's main one.
#include "user/program_window.h"

#include "host/current.h"
#include "user/icon.h"
#include "user/table.h"

namespace user {

namespace {

HWND first;

} // namespace

HWND programWindow() { return find(first) ? first : HWND{}; }

void noteCreation(const Window &window)
{
    if (first || window.windowClass->system || window.parent) {
        return;
    }
    first = window.handle;
    host::current().describeProgram(window.text, iconPicture(window.windowClass->icon));
}

void forgetProgramWindow() { first = {}; }

} // namespace user
