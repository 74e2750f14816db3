// Visible regions. They are computed when asked for and hold until the arrangement changes.
#include "user/visible.h"

#include "user/order.h"
#include "user/paint.h"
#include "user/table.h"

namespace user {

namespace {

/// Counts the arrangements; never 0, which marks a region that was never computed.
unsigned arrangement = 1;

/// The part of the screen that belongs to a window and its children.
gdi::Region areaOf(const Window &window)
{
    if (!window.shown()) {
        return {};
    }
    gdi::Region area = window.parent ? areaOf(*window.parent) : screenRect();
    area.intersect(window.rect);
    for (const Window *sibling : siblingsOf(window)) {
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

void arrangementChanged() { ++arrangement; }

const gdi::Region &Window::visible() const
{
    if (visibleAsOf != arrangement) {
        visibleRegion = areaOf(*this);
        for (const Window *child : children) {
            if (child->shown()) {
                visibleRegion.subtract(child->rect);
            }
        }
        visibleAsOf = arrangement;
    }
    return visibleRegion;
}

VisibilityChange::VisibilityChange()
{
    for (Window *window : everyWindow()) {
        before_.emplace_back(window, window->visible());
    }
}

VisibilityChange::~VisibilityChange()
{
    arrangementChanged();
    for (const auto &[window, before] : before_) {
        gdi::Region uncovered = window->visible();
        uncovered.subtract(before);
        invalidate(*window, uncovered, true);
    }
}

} // namespace user
