// Repainting what a change of the windows uncovers.
#pragma once

#include <utility>
#include <vector>

#include "user/window.h"

namespace user {

/// An object of this class lives around a change of windows. At its end, whatever became visible
/// becomes invalid. No window is made or removed meanwhile.
class VisibilityChange
{
public:
    VisibilityChange();
    VisibilityChange(const VisibilityChange &) = delete;
    VisibilityChange &operator=(const VisibilityChange &) = delete;
    ~VisibilityChange();

private:
    std::vector<std::pair<Window *, gdi::Region>> before_;
};

} // namespace user
