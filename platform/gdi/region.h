// A region of the screen: any set of pixels, kept as rectangles that do not overlap.
#pragma once

#include <vector>

#include "windef.h"

namespace gdi {

class Region
{
public:
    Region() = default;
    Region(const RECT &rect);

    bool empty() const { return rects_.empty(); }
    const std::vector<RECT> &rects() const { return rects_; }
    /// The smallest rectangle around it; all zeros when empty.
    RECT bounds() const;

    // `other` is another region.
    void add(const RECT &rect);
    void add(const Region &other);
    void subtract(const RECT &rect);
    void subtract(const Region &other);
    void intersect(const Region &other);
    void offset(int dx, int dy);
    void clear() { rects_.clear(); }

private:
    std::vector<RECT> rects_;
};

} // namespace gdi
