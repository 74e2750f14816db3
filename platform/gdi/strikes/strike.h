// The fonts of the handheld: bitmap strikes that are made by bake.cpp when the system is built.
#pragma once

#include <cstdint>
#include <span>

namespace gdi {

/// The rectangle of a glyph's pixels, relative to the pen on the baseline.
struct Glyph
{
    std::uint32_t bits;   ///< where its rows begin in Strike::bits
    std::uint8_t advance; ///< pixels by which the pen moves on
    std::int8_t left;     ///< from the pen to the rectangle's left side
    std::int8_t top;      ///< from the baseline up to the rectangle's upper side
    std::uint8_t width;
    std::uint8_t height;
};

/// A run of characters whose glyphs follow each other.
struct CharacterRun
{
    char16_t first;
    char16_t last;
    std::uint16_t glyph; ///< of `first`
};

/// A font at one size. All strikes hold the same characters in the same order; glyph 0 is a
/// box, shown for every other character.
struct Strike
{
    bool bold;
    std::uint8_t characterHeight; ///< pixels per em
    std::uint8_t ascent;
    std::uint8_t descent;
    std::uint8_t overhang; ///< the most pixels by which a glyph leaves its cell on any side
    std::span<const CharacterRun> runs;
    std::span<const Glyph> glyphs;
    const std::uint8_t *bits; ///< rows from the top, each padded to bytes, the leftmost pixel high

    int height() const { return ascent + descent; }
};

std::span<const Strike> strikes();

} // namespace gdi
