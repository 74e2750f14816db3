// The choice of a strike for a font that a program describes.
#include "gdi/font.h"

#include <algorithm>
#include <cstdlib>
#include <memory>

#include "gdi/objects.h"

namespace gdi {

namespace {

constexpr LONG systemFontHeight = 13;

/// How many pixels the strike is off what was asked for.
LONG distance(const Strike &strike, LONG height)
{
    if (height < 0) {
        // Not -height: the lowest number has no opposite.
        return std::abs(strike.characterHeight + std::max(height, -farthest));
    }
    const LONG wanted = height == 0 ? systemFontHeight : height;
    return std::abs(strike.height() - std::min(wanted, farthest));
}

} // namespace

LOGFONTW systemFontDescription()
{
    LOGFONTW description{};
    description.lfHeight = systemFontHeight;
    description.lfWeight = FW_NORMAL;
    std::u16string_view(u"System").copy(description.lfFaceName, LF_FACESIZE - 1);
    return description;
}

const Strike &nearestStrike(const LOGFONTW &description)
{
    const bool bold = description.lfWeight >= FW_BOLD;
    const Strike *best = nullptr;
    for (const Strike &strike : strikes()) {
        if (strike.bold == bold && (!best || distance(strike, description.lfHeight) <
                                                 distance(*best, description.lfHeight)))
        {
            best = &strike;
        }
    }
    return *best;
}

} // namespace gdi

HFONT CreateFontIndirectW(const LOGFONTW *description)
{
    if (!description) {
        return {};
    }
    return {
        {gdi::insert(std::make_unique<gdi::Font>(*description, gdi::nearestStrike(*description)))}};
}
