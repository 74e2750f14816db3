// Which window is in front of which.
//
// Top-level windows stand in one list, front to back: first those with WS_EX_TOPMOST and what they
// own, then the others. A window that is owned is always before its owner.
#include <algorithm>
#include <iterator>

#include "user/manager.h"
#include "user/visible.h"

namespace user {

namespace {

std::vector<Window *> topLevels;

bool isTopmost(const Window &window)
{
    return (window.exStyle & WS_EX_TOPMOST) != 0 || (window.owner && isTopmost(*window.owner));
}

std::vector<Window *> &siblingsOf(const Window &window)
{
    return window.parent ? window.parent->children : topLevels;
}

/// Restores the first rule of the order after a change.
void putTopmostFirst()
{
    std::stable_partition(topLevels.begin(), topLevels.end(),
                          [](Window *each) { return isTopmost(*each); });
    visibilityChanged();
}

} // namespace

const std::vector<Window *> &topLevelWindows() { return topLevels; }

void forgetOrder()
{
    topLevels.clear();
    visibilityChanged();
}

void removeFromSiblings(Window &window)
{
    std::erase(siblingsOf(window), &window);
    visibilityChanged();
}

void insertWindow(Window &window)
{
    auto &siblings = siblingsOf(window);
    siblings.insert(window.parent ? siblings.end() : siblings.begin(), &window);
    putTopmostFirst();
}

void bringToTop(Window &window)
{
    auto &siblings = siblingsOf(window);
    std::stable_partition(siblings.begin(), siblings.end(),
                          [&](Window *each) { return belongsTo(*each, window); });
    putTopmostFirst();
}

void placeBehind(Window &window, Window &sibling)
{
    auto &siblings = siblingsOf(window);
    if (sibling.parent != window.parent || belongsTo(sibling, window)) {
        return;
    }
    const auto moves = [&](Window *each) { return belongsTo(*each, window); };
    std::vector<Window *> group;
    std::copy_if(siblings.begin(), siblings.end(), std::back_inserter(group), moves);
    std::erase_if(siblings, moves);
    const auto place = std::find(siblings.begin(), siblings.end(), &sibling);
    siblings.insert(std::next(place), group.begin(), group.end());
    putTopmostFirst();
}

bool belongsTo(const Window &window, const Window &ancestor)
{
    return &window == &ancestor || (window.owner && belongsTo(*window.owner, ancestor));
}

} // namespace user
