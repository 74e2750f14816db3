// Build tool: renders two outline fonts into the bitmap strikes of the handheld, as a C++ source.
// Usage: bake REGULAR.ttf BOLD.ttf OUTPUT.cpp
//
// Glyphs are rendered in black and white with the fonts' own hinting, which is made for these
// sizes.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_TRUETYPE_TABLES_H

#include "gdi/strikes/strike.h"

namespace {

struct Range
{
    char16_t first;
    char16_t last;
};

constexpr std::array characters{
    Range{0x0020, 0x007E}, // Latin
    Range{0x00A0, 0x017F}, // Latin-1 and Latin Extended-A
    Range{0x0218, 0x021B}, // Romanian letters with comma below
    Range{0x0384, 0x03CE}, // Greek
    Range{0x0400, 0x045F}, // Cyrillic
    Range{0x0490, 0x0491}, // the Ukrainian g
    Range{0x2010, 0x2026}, // dashes, quotation marks, bullet, ellipsis
    Range{0x2030, 0x203A}, // per mille, primes, angle quotation marks
    Range{0x20AC, 0x20AC}, // euro
    Range{0x2116, 0x2122}, // numero, trade mark
    Range{0x2190, 0x2193}, // arrows
    Range{0x2212, 0x2212}, // minus
};

/// A strike to make: `cellHeight` is ascent + descent in pixels.
struct Order
{
    bool bold;
    int cellHeight;
};

constexpr std::array orders{Order{false, 13}, Order{true, 13}, Order{true, 14}, Order{true, 16},
                            Order{true, 32}};

void check(FT_Error error, const char *what)
{
    if (error) {
        throw std::runtime_error(what);
    }
}

using Library = std::unique_ptr<FT_LibraryRec_, decltype(&FT_Done_FreeType)>;
using Face = std::unique_ptr<FT_FaceRec_, decltype(&FT_Done_Face)>;

Library openLibrary()
{
    FT_Library library = nullptr;
    check(FT_Init_FreeType(&library), "cannot start the font engine");
    return {library, FT_Done_FreeType};
}

Face openFace(const Library &library, const char *file)
{
    FT_Face face = nullptr;
    check(FT_New_Face(library.get(), file, 0, &face), file);
    return {face, FT_Done_Face};
}

/// The characters that both faces have, as runs of glyphs; glyph 0 is the box.
std::vector<gdi::CharacterRun> findRuns(const Face &regular, const Face &bold)
{
    std::vector<gdi::CharacterRun> runs;
    std::uint16_t glyph = 1;
    for (const Range &range : characters) {
        bool inRun = false;
        for (char16_t character = range.first; character <= range.last; ++character) {
            const bool known = FT_Get_Char_Index(regular.get(), character) != 0 &&
                               FT_Get_Char_Index(bold.get(), character) != 0;
            if (known && inRun) {
                runs.back().last = character;
            } else if (known) {
                runs.push_back({character, character, glyph});
            }
            inRun = known;
            glyph = static_cast<std::uint16_t>(glyph + (known ? 1 : 0));
        }
    }
    return runs;
}

/// Sets the largest size whose rounded ascent and descent fit the cell; returns the ascent. Rows
/// that are left over are below the baseline.
int fitCell(const Face &face, int cellHeight)
{
    const auto *metrics = static_cast<const TT_OS2 *>(FT_Get_Sfnt_Table(face.get(), FT_SFNT_OS2));
    if (!metrics) {
        throw std::runtime_error("the font has no OS/2 table");
    }
    const int em = face->units_per_EM;
    const auto rounded = [em](int units, int size) { return (units * size + em / 2) / em; };
    int size = cellHeight;
    while (rounded(metrics->usWinAscent, size) + rounded(metrics->usWinDescent, size) > cellHeight)
    {
        --size;
    }
    check(FT_Set_Pixel_Sizes(face.get(), 0, static_cast<FT_UInt>(size)), "no such size");
    return rounded(metrics->usWinAscent, size);
}

struct Baked
{
    gdi::Strike strike{};
    std::vector<gdi::Glyph> glyphs;
    std::vector<std::uint8_t> bits;
};

void loadCharacter(const Face &face, char16_t character)
{
    check(FT_Load_Char(face.get(), character, FT_LOAD_RENDER | FT_LOAD_TARGET_MONO),
          "cannot render a character");
}

/// An upright box, as high as a capital letter.
void appendBox(Baked &baked, const Face &face)
{
    loadCharacter(face, u'H');
    const unsigned height = face->glyph->bitmap.rows;
    const unsigned width = (face->size->metrics.x_ppem + 1U) / 2U;
    baked.glyphs.push_back({static_cast<std::uint32_t>(baked.bits.size()),
                            static_cast<std::uint8_t>(width + 2U), 1,
                            static_cast<std::int8_t>(height), static_cast<std::uint8_t>(width),
                            static_cast<std::uint8_t>(height)});
    for (unsigned y = 0; y < height; ++y) {
        std::array<std::uint8_t, 4> row{};
        for (unsigned x = 0; x < width; ++x) {
            if (y == 0 || y == height - 1 || x == 0 || x == width - 1) {
                row.at(x / 8) = static_cast<std::uint8_t>(row.at(x / 8) | 0x80U >> x % 8);
            }
        }
        baked.bits.insert(baked.bits.end(), row.begin(), row.begin() + (width + 7) / 8);
    }
}

void appendGlyph(Baked &baked, const Face &face, char16_t character)
{
    loadCharacter(face, character);
    const FT_GlyphSlot slot = face->glyph;
    const FT_Bitmap &bitmap = slot->bitmap;
    baked.glyphs.push_back(
        {static_cast<std::uint32_t>(baked.bits.size()),
         static_cast<std::uint8_t>(slot->advance.x / 64),
         static_cast<std::int8_t>(slot->bitmap_left), static_cast<std::int8_t>(slot->bitmap_top),
         static_cast<std::uint8_t>(bitmap.width), static_cast<std::uint8_t>(bitmap.rows)});
    for (unsigned y = 0; y < bitmap.rows; ++y) {
        const std::uint8_t *row = bitmap.buffer + static_cast<std::ptrdiff_t>(y) *
                                                      static_cast<std::ptrdiff_t>(bitmap.pitch);
        baked.bits.insert(baked.bits.end(), row, row + (bitmap.width + 7) / 8);
    }
}

/// The most pixels by which a glyph leaves its cell on any side.
int overhangOf(const Baked &baked)
{
    int overhang = 0;
    for (const gdi::Glyph &glyph : baked.glyphs) {
        overhang = std::max({overhang, -glyph.left, glyph.left + glyph.width - glyph.advance,
                             glyph.top - baked.strike.ascent,
                             glyph.height - glyph.top - baked.strike.descent});
    }
    return overhang;
}

Baked bakeStrike(const Face &face, const Order &order, const std::vector<gdi::CharacterRun> &runs)
{
    Baked baked;
    const int ascent = fitCell(face, order.cellHeight);
    baked.strike.bold = order.bold;
    baked.strike.characterHeight = static_cast<std::uint8_t>(face->size->metrics.y_ppem);
    baked.strike.ascent = static_cast<std::uint8_t>(ascent);
    baked.strike.descent = static_cast<std::uint8_t>(order.cellHeight - ascent);
    appendBox(baked, face);
    for (const gdi::CharacterRun &run : runs) {
        for (char16_t character = run.first; character <= run.last; ++character) {
            appendGlyph(baked, face, character);
        }
    }
    baked.strike.overhang = static_cast<std::uint8_t>(overhangOf(baked));
    return baked;
}

void writeTables(std::ostream &out, const Baked &baked, std::size_t number)
{
    out << "constexpr Glyph glyphs" << number << "[] = {\n";
    for (const gdi::Glyph &glyph : baked.glyphs) {
        out << "    {" << glyph.bits << ", " << int{glyph.advance} << ", " << int{glyph.left}
            << ", " << int{glyph.top} << ", " << int{glyph.width} << ", " << int{glyph.height}
            << "},\n";
    }
    out << "};\nconstexpr std::uint8_t bits" << number << "[] = {";
    constexpr std::size_t bytesPerLine = 20;
    for (std::size_t i = 0; i < baked.bits.size(); ++i) {
        out << (i % bytesPerLine == 0 ? "\n    " : " ") << int{baked.bits[i]} << ',';
    }
    out << "\n};\n";
}

void writeSource(std::ostream &out, const std::vector<gdi::CharacterRun> &runs,
                 const std::vector<Baked> &all)
{
    out << "// Made by bake.\n#include \"gdi/strikes/strike.h\"\n\nnamespace gdi {\n\nnamespace "
           "{\n\n";
    for (std::size_t i = 0; i < all.size(); ++i) {
        writeTables(out, all[i], i);
    }
    out << "constexpr CharacterRun runs[] = {\n";
    for (const gdi::CharacterRun &run : runs) {
        out << "    {" << unsigned{run.first} << ", " << unsigned{run.last} << ", " << run.glyph
            << "},\n";
    }
    out << "};\nconstexpr Strike all[] = {\n";
    for (std::size_t i = 0; i < all.size(); ++i) {
        const gdi::Strike &strike = all[i].strike;
        out << "    {" << (strike.bold ? "true" : "false") << ", " << int{strike.characterHeight}
            << ", " << int{strike.ascent} << ", " << int{strike.descent} << ", "
            << int{strike.overhang} << ", runs, glyphs" << i << ", bits" << i << "},\n";
    }
    out << "};\n\n} // namespace\n\nstd::span<const Strike> strikes() { return all; }\n"
        << "\n} // namespace gdi\n";
}

void bake(const char *regularFile, const char *boldFile, const char *output)
{
    const Library library = openLibrary();
    const Face regular = openFace(library, regularFile);
    const Face bold = openFace(library, boldFile);
    const std::vector<gdi::CharacterRun> runs = findRuns(regular, bold);
    std::vector<Baked> all;
    all.reserve(orders.size());
    for (const Order &order : orders) {
        all.push_back(bakeStrike(order.bold ? bold : regular, order, runs));
    }
    std::ofstream out(output);
    writeSource(out, runs, all);
    out.close();
    if (!out) {
        throw std::runtime_error(std::string("cannot write ") + output);
    }
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 4) {
        std::fputs("usage: bake REGULAR.ttf BOLD.ttf OUTPUT.cpp\n", stderr);
        return 2;
    }
    try {
        bake(argv[1], argv[2], argv[3]);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "bake: %s\n", error.what());
        return 1;
    }
    return 0;
}
