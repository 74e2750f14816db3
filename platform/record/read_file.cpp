// Reads files, and the store beside old ones.
#include "record/read_file.h"

#include "host/small_file.h"

namespace record {

host::Result<Record> readFile(const std::filesystem::path &file, bool cut)
{
    const auto text = host::readSmallFile(file, largestSize);
    if (text.problem) {
        return {{}, text.problem};
    }
    auto result = read(text.value, cut);
    if (result.problem) {
        return {{}, file.string() + ": " + *result.problem};
    }
    Beginning &beginning = result.value.beginning;
    const auto beside = host::readSmallFile(file.string() + ".reg", largestSize);
    if (beginning.program.empty() && !beginning.store && !beside.problem) {
        const auto bytes = std::as_bytes(std::span(beside.value));
        beginning.store.emplace(bytes.begin(), bytes.end());
    }
    return result;
}

} // namespace record
