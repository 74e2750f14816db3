// The choice of a strike for a font that a program describes.
#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "gdi/objects.h"

namespace gdi {

namespace {

constexpr LONG systemFontHeight = 13;

/// How badly the strike fits, in pixels of height. The wrong weight is worse than any height.
LONG distance(const Strike &strike, const LOGFONTW &wanted)
{
    const LONG asked = wanted.lfHeight == 0 ? systemFontHeight : wanted.lfHeight;
    const LONG height = std::clamp(asked, -farthest, farthest);
    const LONG pixels =
        std::abs(height < 0 ? strike.characterHeight + height : strike.height() - height);
    return strike.bold == (wanted.lfWeight >= FW_BOLD) ? pixels : pixels + 2 * farthest;
}

/// The strike of that weight with the nearest height; 0 means the height of the system font. There
/// is only one family of fonts, so the name is ignored.
const Strike &nearestStrike(const LOGFONTW &description)
{
    const std::span<const Strike> all = strikes();
    return *std::min_element(all.begin(), all.end(), [&](const Strike &a, const Strike &b) {
        return distance(a, description) < distance(b, description);
    });
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

Font::Font(const LOGFONTW &itsDescription)
    : Object(kindOf), description(itsDescription), strike(nearestStrike(itsDescription))
{}

} // namespace gdi

HFONT CreateFontIndirectW(const LOGFONTW *description)
{
    return description ? HFONT{{gdi::insert(std::make_unique<gdi::Font>(*description))}} : HFONT{};
}
