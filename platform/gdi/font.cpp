// The choice of a strike for a font that a program describes.
#include "gdi/font.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string_view>

#include "gdi/objects.h"

namespace gdi {

namespace {

constexpr LONG systemFontHeight = 13;

/// How far the strike is off what was asked for: pixels, and any number of them rather than the
/// wrong weight.
LONG distance(const Strike &strike, const LOGFONTW &wanted)
{
    const LONG asked = wanted.lfHeight == 0 ? systemFontHeight : wanted.lfHeight;
    const LONG height = std::clamp(asked, -farthest, farthest);
    const LONG pixels =
        std::abs(height < 0 ? strike.characterHeight + height : strike.height() - height);
    return strike.bold == (wanted.lfWeight >= FW_BOLD) ? pixels : pixels + 2 * farthest;
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
    const std::span<const Strike> all = strikes();
    return *std::min_element(all.begin(), all.end(), [&](const Strike &a, const Strike &b) {
        return distance(a, description) < distance(b, description);
    });
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
