// The list of top-level windows, and the changes of order.
#include "user/order.h"

namespace user {

namespace {

std::vector<Window *> topLevels;

bool isTopmost(const Window &window)
{
    return (window.exStyle & WS_EX_TOPMOST) != 0 || (window.owner && isTopmost(*window.owner));
}

std::vector<Window *> &listOf(const Window &window)
{
    return window.parent ? window.parent->children : topLevels;
}

/// Restores the first rule of the order after a change.
void putTopmostFirst()
{
    std::stable_partition(std::begin(topLevels), std::end(topLevels),
                          [](Window *each) { return isTopmost(*each); });
    arrangementChanged();
}

} // namespace

const std::vector<Window *> &topLevelWindows() { return topLevels; }

const std::vector<Window *> &siblingsOf(const Window &window) { return listOf(window); }

bool belongsTo(const Window &window, const Window &ancestor)
{
    return &window == &ancestor || (window.owner && belongsTo(*window.owner, ancestor));
}

void insertWindow(Window &window)
{
    auto &siblings = listOf(window);
    siblings.insert(window.parent ? siblings.end() : siblings.begin(), &window);
    putTopmostFirst();
}

void removeFromSiblings(Window &window)
{
    std::erase(listOf(window), &window);
    arrangementChanged();
}

void bringToTop(Window &window)
{
    std::stable_partition(listOf(window).begin(), listOf(window).end(),
                          [&](Window *each) { return belongsTo(*each, window); });
    putTopmostFirst();
}

void forgetOrder()
{
    topLevels.clear();
    arrangementChanged();
}

} // namespace user
