// Between UTF-16, which the handheld has, and UTF-8, which hosts and files have.
#pragma once

#include <string>
#include <string_view>

namespace base {

/// What becomes of a surrogate without its other half. Kept, it is encoded like any character, and
/// `appendUtf16` decodes it again.
enum class LoneSurrogate
{
    Replaced, ///< by U+FFFD
    Kept
};
std::string toUtf8(std::u16string_view text, LoneSurrogate lone = LoneSurrogate::Replaced);

/// Bytes that are no UTF-8 become U+FFFD each.
std::u16string toUtf16(std::string_view bytes);
/// Appends to `text`; stops at the first byte that is no UTF-8 and returns false.
[[nodiscard]] bool appendUtf16(std::string_view bytes, std::u16string &text);

} // namespace base
