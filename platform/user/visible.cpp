// Visible regions. They are worked out when asked for and hold until the windows change.
#include "user/visible.h"

#include <algorithm>

#include "shell/shell.h"
#include "user/manager.h"
#include "user/paint.h"

namespace user {

namespace {

/// Counts the changes of windows; never 0, which marks a region that was never worked out.
unsigned state = 1;

/// The part of the screen that belongs to a window and its children.
gdi::Region areaOf(const Window &window)
{
    if (!window.shown()) {
        return {};
    }
    gdi::Region area = window.parent ? areaOf(*window.parent) : gdi::Region(screenRect());
    area.intersect(window.rect);
    const auto &siblings = window.parent ? window.parent->children : topLevelWindows();
    for (const Window *sibling : siblings) {
        if (sibling == &window || area.empty()) {
            break;
        }
        if (sibling->shown()) {
            area.subtract(sibling->rect);
        }
    }
    return area;
}

} // namespace

void visibilityChanged() { ++state; }

const gdi::Region &Window::visible() const
{
    if (visibleAsOf != state) {
        visibleRegion = areaOf(*this);
        for (const Window *child : children) {
            if (child->shown()) {
                visibleRegion.subtract(child->rect);
            }
        }
        visibleAsOf = state;
    }
    return visibleRegion;
}

RECT screenRect() { return {0, 0, gdi::screen().width, gdi::screen().height}; }

RECT defaultRect()
{
    RECT rect = screenRect();
    rect.top = shell::titleBarHeight;
    return rect;
}

VisibilityChange::VisibilityChange()
{
    for (const Window *window : everyWindow()) {
        before_.emplace_back(window->handle, window->visible());
    }
}

VisibilityChange::~VisibilityChange()
{
    visibilityChanged();
    for (Window *window : everyWindow()) {
        gdi::Region uncovered = window->visible();
        if (uncovered.empty()) {
            continue;
        }
        const auto before = std::find_if(before_.begin(), before_.end(), [&](const auto &each) {
            return each.first == window->handle;
        });
        if (before != before_.end()) {
            uncovered.subtract(before->second);
        }
        invalidate(*window, uncovered, true);
    }
}

} // namespace user
