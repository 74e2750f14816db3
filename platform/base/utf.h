// Texts cross the line between the handheld, which speaks UTF-16, and the host's UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace base {

/// An unpaired surrogate becomes U+FFFD.
std::string toUtf8(std::u16string_view text);
/// Bytes that are no UTF-8 become U+FFFD each.
std::u16string toUtf16(std::string_view text);

} // namespace base
