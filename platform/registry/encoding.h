// UTF-8 and UTF-16, for the registry's file.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace registry {

/// Appends `bytes`, as UTF-16, to `text`; at the first byte that cannot be, it stops and returns
/// false. A single surrogate is a character like another, so every name survives both ways.
bool appendUtf8(std::string_view bytes, std::u16string &text);
std::string toUtf8(std::u16string_view text);

} // namespace registry
