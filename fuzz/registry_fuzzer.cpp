// Takes any bytes as the registry's file. They are refused, or they are read, written, and read
// back the same.
#include <cstdlib>

#include "registry/text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto first = registry::readText(std::as_bytes(std::span(data, size)));
    if (const auto *hive = std::get_if<registry::Hive>(&first)) {
        const std::string written = registry::writeText(*hive);
        const auto second = registry::readText(std::as_bytes(std::span(written)));
        const auto *again = std::get_if<registry::Hive>(&second);
        if (!again || registry::writeText(*again) != written) {
            std::abort();
        }
    }
    return 0;
}
