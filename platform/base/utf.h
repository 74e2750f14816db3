// Conversion between UTF-16, used in the handheld, and UTF-8, used by hosts and in files.
#pragma once

#include <string>
#include <string_view>

namespace base {

/// How to encode half a surrogate pair. A kept one is encoded like any character, and
/// `appendUtf16` decodes it again.
enum class LoneSurrogate
{
    Replaced, ///< by U+FFFD
    Kept
};
std::string toUtf8(std::u16string_view text, LoneSurrogate lone = LoneSurrogate::Replaced);

/// Each byte that isn't valid UTF-8 becomes U+FFFD.
std::u16string toUtf16(std::string_view bytes);
/// Appends to `text`. Stops at the first byte that isn't valid UTF-8 and returns false.
[[nodiscard]] bool appendUtf16(std::string_view bytes, std::u16string &text);

} // namespace base
