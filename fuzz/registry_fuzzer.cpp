// Takes any bytes as the registry's file. They are refused, or they are read, written, and read
// back the same.
#include <cstdlib>

#include "registry/text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    registry::Hive hive;
    if (!registry::readText(std::as_bytes(std::span(data, size)), hive)) {
        const std::string written = registry::writeText(hive);
        registry::Hive again;
        if (registry::readText(std::as_bytes(std::span(written)), again) ||
            registry::writeText(again) != written)
        {
            std::abort();
        }
    }
    return 0;
}
