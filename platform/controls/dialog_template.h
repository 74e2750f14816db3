// What a dialog consists of, read from the standard binary form of DIALOG resources.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "winuser.h"

namespace controls {

struct ControlTemplate
{
    std::u16string className;
    std::u16string text; ///< of a STATIC with a picture, "#" and the number of the resource
    DWORD style = 0;
    DWORD exStyle = 0;
    int id = 0;
    RECT rect{}; ///< pixels of the dialog
};

struct DialogTemplate
{
    std::u16string caption;
    DWORD style = 0;
    DWORD exStyle = 0;
    RECT rect{}; ///< pixels of the owner's client area; with DS_ABSALIGN, of the screen
    std::vector<ControlTemplate> controls;
};

/// Pixels of a length in dialog units: a fourth of the system font's average width across, an
/// eighth of its height down.
int pixelsAcross(int units);
int pixelsDown(int units);

/// Reads a template at the beginning of `bytes`; none when it is cut short.
std::optional<DialogTemplate> parseTemplate(std::span<const std::byte> bytes);

} // namespace controls
