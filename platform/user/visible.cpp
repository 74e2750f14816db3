// Visible regions. They are computed when asked for and hold until the arrangement changes.
#include "user/visible.h"

#include <algorithm>

#include "user/order.h"
#include "user/paint.h"
#include "user/table.h"

namespace user {

namespace {

/// The part of the screen that belongs to a window and its children.
gdi::Region areaOf(const Window &window)
{
    if (!window.shown()) {
        return {};
    }
    gdi::Region area = window.parent ? areaOf(*window.parent) : gdi::Region(screenRect());
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

const gdi::Region &Window::visible() const
{
    if (visibleAsOf != arrangement()) {
        visibleRegion = areaOf(*this);
        for (const Window *child : children) {
            if (child->shown()) {
                visibleRegion.subtract(child->rect);
            }
        }
        visibleAsOf = arrangement();
    }
    return visibleRegion;
}

VisibilityChange::VisibilityChange()
{
    for (const Window *window : everyWindow()) {
        before_.emplace_back(window->handle, window->visible());
    }
}

VisibilityChange::~VisibilityChange()
{
    arrangementChanged();
    for (Window *window : everyWindow()) {
        gdi::Region uncovered = window->visible();
        if (uncovered.empty()) {
            continue;
        }
        const auto before =
            std::find_if(std::begin(before_), std::end(before_),
                         [&](const auto &each) { return each.first == window->handle; });
        if (before != before_.end()) {
            uncovered.subtract(before->second);
        }
        invalidate(*window, uncovered, true);
    }
}

} // namespace user
