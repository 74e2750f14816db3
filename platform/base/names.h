// Comparing the names of classes and resources.
#pragma once

#include <string_view>

namespace base {

/// Whether two names are the same without regard to the case of A to Z.
bool sameName(std::u16string_view a, std::u16string_view b);

} // namespace base
