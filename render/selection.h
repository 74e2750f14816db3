// An object selected into a device context for one drawing step; the previous one comes back at
// the step's end.
#pragma once

#include <windows.h>

class Selection
{
public:
    Selection(HDC dc, HGDIOBJ object) : dc_(dc), previous_(SelectObject(dc, object)) {}
    ~Selection() { SelectObject(dc_, previous_); }
    Selection(const Selection &) = delete;
    Selection &operator=(const Selection &) = delete;

private:
    HDC dc_;
    HGDIOBJ previous_;
};
