// Points and sizes in pixels.
#pragma once

namespace host {

struct Size
{
    int width = 0;
    int height = 0;
};

struct Point
{
    int x = 0;
    int y = 0;
    friend bool operator==(const Point &, const Point &) = default;
};

} // namespace host
