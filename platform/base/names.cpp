// Comparing names.
#include "base/names.h"

#include <algorithm>

namespace base {

namespace {

char16_t upper(char16_t unit)
{
    return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - (u'a' - u'A')) : unit;
}

} // namespace

bool sameName(std::u16string_view a, std::u16string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char16_t x, char16_t y) { return upper(x) == upper(y); });
}

} // namespace base
