// Reads dialog templates: DLGTEMPLATE with its DLGITEMTEMPLATEs.
#include "controls/dialog_template.h"

#include <array>

#include "base/byte_reader.h"

namespace controls {

namespace {

constexpr std::uint16_t ordinalFollows = 0xFFFF;

constexpr int divided(int value, int multiplier, int divisor)
{
    const int product = value * multiplier;
    return (product + (product < 0 ? -divisor : divisor) / 2) / divisor;
}

/// The classes that templates name by number, from 0x80.
constexpr std::array<std::u16string_view, 6> numberedClasses = {
    u"BUTTON", u"EDIT", u"STATIC", u"LISTBOX", u"SCROLLBAR", u"COMBOBOX"};

struct TextOrNumber
{
    std::u16string text;
    std::optional<std::uint16_t> number;
};

TextOrNumber readTextOrNumber(base::ByteReader &reader)
{
    const std::uint16_t first = reader.word();
    if (first == ordinalFollows) {
        return {{}, reader.word()};
    }
    return {first == 0 ? std::u16string{} : static_cast<char16_t>(first) + reader.text(), {}};
}

std::u16string className(const TextOrNumber &read)
{
    if (!read.number) {
        return read.text;
    }
    const std::size_t index = *read.number - std::size_t{0x80};
    return index < numberedClasses.size() ? std::u16string(numberedClasses[index])
                                          : std::u16string{};
}

std::u16string controlText(const TextOrNumber &read)
{
    if (!read.number) {
        return read.text;
    }
    std::u16string text = u"#";
    for (const char digit : std::to_string(*read.number)) {
        text += static_cast<char16_t>(digit);
    }
    return text;
}

RECT readRect(base::ByteReader &reader)
{
    const int x = pixelsAcross(reader.signedWord());
    const int y = pixelsDown(reader.signedWord());
    const int width = pixelsAcross(reader.signedWord());
    const int height = pixelsDown(reader.signedWord());
    return {x, y, x + width, y + height};
}

ControlTemplate readControl(base::ByteReader &reader)
{
    ControlTemplate control;
    reader.align(4);
    control.style = reader.doubleWord();
    control.exStyle = reader.doubleWord();
    control.rect = readRect(reader);
    control.id = reader.signedWord();
    control.className = className(readTextOrNumber(reader));
    control.text = controlText(readTextOrNumber(reader));
    reader.skip(reader.word()); // creation data
    return control;
}

} // namespace

int pixelsAcross(int units) { return divided(units, 6, 4); }
int pixelsDown(int units) { return divided(units, 13, 8); }

std::optional<DialogTemplate> parseTemplate(std::span<const std::byte> bytes)
{
    base::ByteReader reader(bytes);
    DialogTemplate dialog;
    dialog.style = reader.doubleWord();
    dialog.exStyle = reader.doubleWord();
    const int count = reader.word();
    dialog.rect = readRect(reader);
    readTextOrNumber(reader); // menu
    readTextOrNumber(reader); // class
    dialog.caption = readTextOrNumber(reader).text;
    if ((dialog.style & DS_SETFONT) != 0) {
        reader.skip(2); // its size
        reader.text();  // its name; there is only the system font
    }
    for (int i = 0; i < count && reader.good(); ++i) {
        dialog.controls.push_back(readControl(reader));
    }
    return reader.good() ? std::optional(dialog) : std::nullopt;
}

} // namespace controls
