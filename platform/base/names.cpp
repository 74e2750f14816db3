// Comparing names.
#include "base/names.h"

#include <algorithm>

namespace base {

bool sameName(std::u16string_view a, std::u16string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char16_t x, char16_t y) { return folded(x) == folded(y); });
}

} // namespace base
