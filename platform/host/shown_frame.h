// What a window or a page shows of the screen. Programs draw more than they change, and enlarging
// a pixel costs much more than comparing it.
#pragma once

#include <vector>

#include "host/host.h"
#include "host/pixel.h"

namespace host {

class ShownFrame
{
public:
    /// Takes over what is new of the frame, and returns an area that encloses it, up to three
    /// pixels wider than needed on either side; empty when there is nothing new. Differences are
    /// looked for in all of the rows of `changed`, and only there. The frame's width is a multiple
    /// of four.
    Area update(const Frame &frame, const Area &changed);

private:
    std::vector<Pixel> pixels_;
    int width_ = 0;
};

} // namespace host
