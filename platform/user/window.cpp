// Counts the arrangements of the windows.
#include "user/window.h"

namespace user {

namespace {

unsigned arrangements = 1;

} // namespace

POINT Window::place() const
{
    const POINT base = parent ? parent->origin() : POINT{};
    return {rect.left - base.x, rect.top - base.y};
}

void arrangementChanged() { ++arrangements; }

unsigned arrangement() { return arrangements; }

RECT screenRect() { return {0, 0, gdi::screen().width, gdi::screen().height}; }

} // namespace user
