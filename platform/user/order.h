// Which window is in front of which.
//
// Top-level windows stand in one list, front to back: first those with WS_EX_TOPMOST and what they
// own, then the others. A window that is owned is always before its owner.
#pragma once

#include <algorithm>
#include <vector>

#include "user/window.h"

namespace user {

/// Every top-level window, front to back.
const std::vector<Window *> &topLevelWindows();
/// The first window of a list that `matches`; null when none does.
template <class Predicate>
Window *firstOf(const std::vector<Window *> &list, Predicate matches)
{
    const auto found = std::find_if(std::begin(list), std::end(list), matches);
    return found == std::end(list) ? nullptr : *found;
}
/// A window and its siblings, front to back.
const std::vector<Window *> &siblingsOf(const Window &window);
/// Whether `window` is `ancestor` or is owned by it, however indirectly.
bool belongsTo(const Window &window, const Window &ancestor);

/// Puts a new window among its siblings: a child behind all others, a top-level window before.
void insertWindow(Window &window);
void removeFromSiblings(Window &window);
/// To the top of its siblings. The windows that a top-level window owns move with it, in front.
void bringToTop(Window &window);
void forgetOrder();

} // namespace user
