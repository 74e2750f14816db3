// The rectangle functions for programs.
#include "gdi/rect.h"

#include "wingdi.h"

BOOL OffsetRect(RECT *rect, int dx, int dy)
{
    *rect = gdi::moved(*rect, dx, dy);
    return TRUE;
}

BOOL InflateRect(RECT *rect, int dx, int dy)
{
    *rect = {rect->left - dx, rect->top - dy, rect->right + dx, rect->bottom + dy};
    return TRUE;
}

BOOL IntersectRect(RECT *result, const RECT *a, const RECT *b)
{
    const RECT common = gdi::intersection(*a, *b);
    const bool meet = !gdi::isEmpty(common);
    *result = meet ? common : RECT{};
    return meet ? TRUE : FALSE;
}

BOOL PtInRect(const RECT *rect, POINT point)
{
    return point.x >= rect->left && point.x < rect->right && point.y >= rect->top &&
                   point.y < rect->bottom
               ? TRUE
               : FALSE;
}
