// Comparing names of classes, resources and registry keys.
#pragma once

#include <algorithm>
#include <string_view>

namespace base {

/// In lower case; only A to Z have one.
constexpr char16_t folded(char16_t unit)
{
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

/// Whether two names are the same without regard to the case of A to Z.
inline bool sameName(std::u16string_view a, std::u16string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char16_t x, char16_t y) { return folded(x) == folded(y); });
}

} // namespace base
