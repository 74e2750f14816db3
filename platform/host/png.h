// Pictures of the screen as PNG files.
#pragma once

#include <filesystem>

#include "host/host.h"
#include "host/problem.h"

namespace host {

/// Writes the frame as an 8-bit RGB PNG, always the same bytes for the same pixels.
[[nodiscard]] Problem writePng(const std::filesystem::path &file, const Frame &frame);

} // namespace host
