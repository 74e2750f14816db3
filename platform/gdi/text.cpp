// Text: splitting into lines, measuring and drawing.
#include <optional>
#include <string_view>
#include <utility>

#include "gdi/canvas.h"
#include "gdi/glyph.h"

namespace gdi {

namespace {

struct Letter
{
    char16_t character;
    bool underlined = false;
};

/// Goes through a text letter by letter. With prefixes '&' underlines the next letter, and "&&" is
/// a literal '&'.
class Letters
{
public:
    Letters(std::u16string_view text, bool prefixes) : text_(text), prefixes_(prefixes) {}

    std::optional<Letter> next()
    {
        const bool marked = prefixes_ && at_ < text_.size() && text_[at_] == u'&';
        at_ += marked ? 1 : 0;
        if (at_ == text_.size()) {
            return std::nullopt;
        }
        const char16_t character = text_[at_++];
        return Letter{character, marked && character != u'&'};
    }

    /// The code units read so far.
    std::size_t position() const { return at_; }

private:
    std::u16string_view text_;
    bool prefixes_;
    std::size_t at_ = 0;
};

/// The font and layout of a text.
struct Style
{
    const Strike &strike;
    bool prefixes;
    bool oneLine;
    std::optional<LONG> wrapWidth; ///< pixels; breaks lines between words to fit
};

LONG widthOf(const Style &style, std::u16string_view text)
{
    LONG width = 0;
    Letters letters(text, style.prefixes);
    while (const std::optional<Letter> letter = letters.next()) {
        width += glyphOf(style.strike, letter->character).advance;
    }
    return width;
}

/// Removes the end of a line: CR LF, or one of them.
void skipLineEnd(std::u16string_view &text)
{
    const std::size_t units = text.substr(0, 2) == u"\r\n" ? 2 : 1;
    text.remove_prefix(std::min(units, text.size()));
}

/// The number of code units of the line that fit the width: up to a space, or to the end of the
/// line. A word that is wider is not cut.
std::size_t fittingLength(const Style &style, std::u16string_view line)
{
    std::size_t wordsEnd = 0;
    std::size_t before = 0;
    bool inWord = false;
    LONG width = 0;
    Letters letters(line, style.prefixes);
    while (const std::optional<Letter> letter = letters.next()) {
        const bool space = letter->character == u' ';
        width += glyphOf(style.strike, letter->character).advance;
        if (space && inWord) {
            wordsEnd = before;
        } else if (!space && wordsEnd > 0 && width > *style.wrapWidth) {
            return wordsEnd;
        }
        inWord = !space;
        before = letters.position();
    }
    return line.size();
}

/// Removes the next line from the text and returns it.
std::u16string_view takeLine(const Style &style, std::u16string_view &text)
{
    if (style.oneLine) {
        return std::exchange(text, {});
    }
    std::u16string_view line = text.substr(0, text.find_first_of(u"\r\n"));
    const std::size_t fitting = style.wrapWidth ? fittingLength(style, line) : line.size();
    if (fitting == line.size()) {
        text.remove_prefix(fitting);
        skipLineEnd(text);
        return line;
    }
    // The spaces at the break belong to neither line.
    text.remove_prefix(std::min(text.find_first_not_of(u' ', fitting), text.size()));
    return line.substr(0, fitting);
}

/// Draws a line whose cell is `cell` (raster pixels).
void drawLetters(const Raster &raster, const RECT &part, const Style &style,
                 std::u16string_view line, const RECT &cell, Pixel ink)
{
    POINT pen{cell.left, cell.top + style.strike.ascent};
    Letters letters(line, style.prefixes);
    while (const std::optional<Letter> letter = letters.next()) {
        const Glyph &glyph = glyphOf(style.strike, letter->character);
        drawGlyph(raster, part, style.strike, glyph, pen, ink);
        if (letter->underlined) {
            const RECT stroke{pen.x, pen.y + 1, pen.x + glyph.advance, pen.y + 2};
            fill(raster, intersection(part, stroke), ink);
        }
        pen.x += glyph.advance;
    }
}

/// Draws a line whose cell is `cell` (logical coordinates), inside `limit`.
void drawLine(const DeviceContext &dc, const Style &style, std::u16string_view line,
              const RECT &cell, const RECT &limit)
{
    const RECT reach = intersection(grown(cell, style.strike.overhang), limit);
    const Pixel ink = toPixel(dc.settings.textColour);
    paint(dc, reach, [&](const Raster &raster, POINT origin, const RECT &part) {
        const RECT there = moved(cell, origin.x, origin.y);
        if (dc.settings.backgroundMode == OPAQUE) {
            fill(raster, intersection(part, there), toPixel(RGB(255, 255, 255)));
        }
        drawLetters(raster, part, style, line, there, ink);
    });
}

/// The upper left corner of a line of that size in the rectangle.
POINT lineCorner(const RECT &rect, SIZE line, UINT flags)
{
    POINT corner{rect.left, rect.top};
    if (flags & DT_RIGHT) {
        corner.x = rect.right - line.cx;
    } else if (flags & DT_CENTER) {
        corner.x += (rect.right - rect.left - line.cx) / 2;
    }
    if ((flags & DT_SINGLELINE) && (flags & DT_VCENTER)) {
        corner.y += (rect.bottom - rect.top - line.cy) / 2;
    }
    return corner;
}

std::u16string_view viewOf(LPCWSTR text, int length)
{
    return length < 0 ? std::u16string_view(text)
                      : std::u16string_view(text, static_cast<std::size_t>(length));
}

} // namespace

} // namespace gdi

int DrawTextW(HDC dc, LPCWSTR text, int length, RECT *rect, UINT flags)
{
    const auto *context = gdi::find<gdi::DeviceContext>(dc.value);
    if (!context || !text || !rect || !gdi::inReach(*rect)) {
        return 0;
    }
    const gdi::Style style{context->selected<gdi::Font>().strike, (flags & DT_NOPREFIX) == 0,
                           (flags & DT_SINGLELINE) != 0,
                           flags & DT_WORDBREAK ? std::optional(rect->right - rect->left)
                                                : std::nullopt};
    const RECT limit = flags & DT_NOCLIP ? gdi::everywhere : *rect;
    std::u16string_view rest = gdi::viewOf(text, length);
    SIZE whole{0, 0};
    do {
        const std::u16string_view line = gdi::takeLine(style, rest);
        const SIZE size{gdi::widthOf(style, line), style.strike.height()};
        if ((flags & DT_CALCRECT) == 0) {
            const POINT corner = gdi::lineCorner(*rect, size, flags);
            const LONG top = corner.y + whole.cy;
            gdi::drawLine(*context, style, line, {corner.x, top, corner.x + size.cx, top + size.cy},
                          limit);
        }
        whole = {std::max(whole.cx, size.cx), whole.cy + size.cy};
    } while (!rest.empty());
    if (flags & DT_CALCRECT) {
        rect->right = rect->left + whole.cx;
        rect->bottom = rect->top + whole.cy;
    }
    return whole.cy;
}

BOOL GetTextExtentPoint32W(HDC dc, LPCWSTR text, int length, SIZE *size)
{
    const auto *context = gdi::find<gdi::DeviceContext>(dc.value);
    if (!context || !text || !size) {
        return FALSE;
    }
    const gdi::Style style{context->selected<gdi::Font>().strike, false, true, std::nullopt};
    *size = {gdi::widthOf(style, gdi::viewOf(text, length)), style.strike.height()};
    return TRUE;
}
