// Repainting what a change of the windows uncovers.
#pragma once

#include <utility>
#include <vector>

#include "gdi/region.h"
#include "winuser.h"

namespace user {

/// An object of this class lives around a change of windows. At its end, whatever became visible
/// becomes invalid.
class VisibilityChange
{
public:
    VisibilityChange();
    VisibilityChange(const VisibilityChange &) = delete;
    VisibilityChange &operator=(const VisibilityChange &) = delete;
    ~VisibilityChange();

private:
    std::vector<std::pair<HWND, gdi::Region>> before_;
};

} // namespace user
