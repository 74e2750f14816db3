// Device contexts: creation, selection, settings.
#include <utility>

#include "gdi/canvas.h"

namespace gdi {

namespace {

void retain(Object &object, const DeviceContext &by)
{
    ++object.selections;
    if (object.kind == Kind::Bitmap) {
        static_cast<Bitmap &>(object).selectedIn = &by;
    }
}

void retainAll(const DeviceContext &dc)
{
    for (Object *object : dc.settings.selected) {
        if (object) {
            retain(*object, dc);
        }
    }
}

void releaseAll(const Settings &settings)
{
    for (Object *object : settings.selected) {
        if (object) {
            --object->selections;
        }
    }
}

/// Selects the objects that a new device context starts with; `bitmap` is null for the screen.
HDC open(std::unique_ptr<DeviceContext> dc, Object *bitmap)
{
    DeviceContext &opened = *dc;
    opened.settings.selected = {bitmap, findObject(GetStockObject(WHITE_BRUSH).value),
                                findObject(GetStockObject(BLACK_PEN).value),
                                findObject(GetStockObject(SYSTEM_FONT).value)};
    const HDC handle{insert(std::move(dc))};
    if (handle) {
        retainAll(opened);
    }
    return handle;
}

/// False when `dc` does not exist, or is a memory device context where a screen one is wanted, or
/// the other way round.
bool close(HDC dc, bool onScreen)
{
    const auto *context = find<DeviceContext>(dc.value);
    if (!context || (context->area != nullptr) != onScreen) {
        return false;
    }
    releaseAll(context->settings);
    for (const Settings &settings : context->saved) {
        releaseAll(settings);
    }
    erase(dc.value);
    return true;
}

/// A bitmap can be selected in one device context at a time, and never in one on the screen.
bool mayTake(const DeviceContext &dc, const Object &object)
{
    if (object.kind != Kind::Bitmap) {
        return object.kind != Kind::DeviceContext;
    }
    const auto &bitmap = static_cast<const Bitmap &>(object);
    return !dc.area && (bitmap.stock || bitmap.selections == 0 || bitmap.selectedIn == &dc);
}

} // namespace

HDC openScreenDC(const ScreenArea &area, const std::optional<Region> &within)
{
    return open(std::make_unique<DeviceContext>(&area, within), nullptr);
}

bool closeScreenDC(HDC dc) { return close(dc, true); }

} // namespace gdi

HDC CreateCompatibleDC(HDC)
{
    return gdi::open(std::make_unique<gdi::DeviceContext>(nullptr, std::nullopt),
                     gdi::findObject(gdi::stockBitmap().value));
}

BOOL DeleteDC(HDC dc) { return gdi::close(dc, false) ? TRUE : FALSE; }

HGDIOBJ SelectObject(HDC dc, HGDIOBJ object)
{
    auto *context = gdi::find<gdi::DeviceContext>(dc.value);
    gdi::Object *chosen = gdi::findObject(object.value);
    if (!context || !chosen || !gdi::mayTake(*context, *chosen)) {
        return {};
    }
    gdi::Object *&place = context->settings.selected[static_cast<std::size_t>(chosen->kind)];
    gdi::retain(*chosen, *context);
    --place->selections;
    return std::exchange(place, chosen)->handle;
}

BOOL DeleteObject(HGDIOBJ object)
{
    const gdi::Object *doomed = gdi::findObject(object.value);
    if (!doomed || doomed->kind == gdi::Kind::DeviceContext || doomed->stock ||
        doomed->selections > 0) {
        return FALSE;
    }
    gdi::erase(object.value);
    return TRUE;
}

int IntersectClipRect(HDC dc, int left, int top, int right, int bottom)
{
    constexpr int failed = 0;
    constexpr int empty = 1;
    constexpr int rectangle = 2;
    auto *context = gdi::find<gdi::DeviceContext>(dc.value);
    if (!context || !gdi::inReach(left, top, right, bottom)) {
        return failed;
    }
    RECT &clip = context->settings.clip;
    clip = gdi::intersection(clip, {left, top, right, bottom});
    return gdi::isEmpty(clip) ? empty : rectangle;
}

int SaveDC(HDC dc)
{
    auto *context = gdi::find<gdi::DeviceContext>(dc.value);
    if (!context) {
        return 0;
    }
    gdi::retainAll(*context);
    context->saved.push_back(context->settings);
    return static_cast<int>(context->saved.size());
}

BOOL RestoreDC(HDC dc, int level)
{
    auto *context = gdi::find<gdi::DeviceContext>(dc.value);
    if (!context) {
        return FALSE;
    }
    const int levels = static_cast<int>(context->saved.size());
    const int wanted = level == -1 ? levels : level;
    if (wanted < 1 || wanted > levels) {
        return FALSE;
    }
    for (int i = levels; i >= wanted; --i) {
        gdi::releaseAll(context->settings);
        context->settings = context->saved.back();
        context->saved.pop_back();
    }
    return TRUE;
}

int SetBkMode(HDC dc, int mode)
{
    auto *context = gdi::find<gdi::DeviceContext>(dc.value);
    return context ? std::exchange(context->settings.backgroundMode, mode) : 0;
}

COLORREF SetTextColor(HDC dc, COLORREF colour)
{
    auto *context = gdi::find<gdi::DeviceContext>(dc.value);
    return context ? std::exchange(context->settings.textColour, colour) : CLR_INVALID;
}
