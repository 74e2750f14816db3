// Rectangles that tests compare.
#pragma once

#include "windef.h"

inline bool operator==(const RECT &a, const RECT &b)
{
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}
