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
    return std::ranges::equal(a, b, {}, upper, upper);
}

} // namespace base
