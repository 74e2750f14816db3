// Pictures of the screen as PNG files.
#pragma once

#include <filesystem>
#include <string>

#include "host/host.h"

namespace host {

/// Writes the frame as an 8-bit RGB PNG, always the same bytes for the same pixels. Returns why
/// it could not, or an empty text.
std::string writePng(const std::filesystem::path &file, const Frame &frame);

} // namespace host
