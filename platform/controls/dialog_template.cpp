// Reads dialog templates: DLGTEMPLATE with its DLGITEMTEMPLATEs.
#include "controls/dialog_template.h"

#include <array>

#include "base/byte_reader.h"
#include "resources/image.h"
#include "winbase.h"

namespace controls {

namespace {

constexpr int divided(int value, int multiplier, int divisor)
{
    const int product = value * multiplier;
    return (product + (product < 0 ? -divisor : divisor) / 2) / divisor;
}

/// The classes that templates name by number, from 0x80.
constexpr std::array<std::u16string_view, 6> numberedClasses = {
    u"BUTTON", u"EDIT", u"STATIC", u"LISTBOX", u"SCROLLBAR", u"COMBOBOX"};

std::u16string className(const resources::Name &read)
{
    const std::size_t index = read.number - std::size_t{0x80};
    return read.text.empty() && index < numberedClasses.size()
               ? std::u16string(numberedClasses[index])
               : read.text;
}

/// The number of a picture's resource becomes a text, "#" and its digits.
std::u16string controlText(const resources::Name &read)
{
    if (read.number == 0) {
        return read.text;
    }
    WCHAR digits[33];
    return u'#' + std::u16string(_itow(read.number, digits, 10));
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
    control.className = className(resources::Name::read(reader));
    control.text = controlText(resources::Name::read(reader));
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
    resources::Name::read(reader); // menu
    resources::Name::read(reader); // class
    dialog.caption = resources::Name::read(reader).text;
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
