// Reads a device-independent bitmap, as resources hold them, into the display's format.
#pragma once

#include <cstddef>
#include <memory>
#include <span>

#include "gdi/objects.h"

namespace gdi {

/// `dib` is a 40-byte header, a palette, and rows from the bottom up, each padded to 4 bytes:
/// uncompressed, 8 bits a pixel with a palette, or 24 bits. Null when it is anything else or
/// shorter than its header says.
std::unique_ptr<Bitmap> readDib(std::span<const std::byte> dib);

} // namespace gdi
