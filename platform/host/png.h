// Pictures of the screen as PNG files.
#pragma once

#include <filesystem>

#include "host/host.h"
#include "host/problem.h"

namespace host {

/// The frame as an 8-bit RGB PNG, always the same bytes for the same pixels; none when there is no
/// memory for it.
std::vector<std::byte> encodePng(const Frame &frame);
/// Writes that, to whatever the name means.
[[nodiscard]] Problem writePng(const std::filesystem::path &file, const Frame &frame);

} // namespace host
