// What can be seen of the windows, and what a change of the windows uncovers.
#pragma once

#include <utility>
#include <vector>

#include "user/window.h"

namespace user {

/// To be called after every change of a window's place, order or visibility: regions worked out
/// before it no longer hold.
void visibilityChanged();

/// Lives around a change of windows. What can be seen of any window after it and could not before
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
