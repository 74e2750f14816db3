// Takes any bytes as a picture of the resources. It is refused, or it has as many bytes as pixels.
#include <cstdlib>

#include "gdi/dib.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto bitmap = gdi::readDib(std::as_bytes(std::span(data, size)));
    if (!bitmap) {
        return 0;
    }
    // Each pixel takes one byte at least, so a small picture cannot become a large one.
    const auto count =
        static_cast<std::size_t>(bitmap->width) * static_cast<std::size_t>(bitmap->height);
    if (bitmap->width <= 0 || bitmap->height <= 0 || count > size) {
        std::abort();
    }
    return 0;
}
