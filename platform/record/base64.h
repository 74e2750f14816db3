// Bytes as letters and digits, 76 a line, in which they survive whatever carries text.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace record {

/// The alphabet of RFC 4648, with padding, without ends of lines.
std::string toBase64(std::span<const std::byte> bytes);
/// None when the text has another character, or a wrong length.
std::optional<std::vector<std::byte>> fromBase64(std::string_view text);

} // namespace record
