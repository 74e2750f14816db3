// Selects an object into a device context for one drawing step and puts the previous one back at
// its end.
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
