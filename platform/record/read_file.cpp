// Reads files, and the store beside old ones.
#include "record/read_file.h"

#include "host/files.h"

namespace record {

host::Result<Record> readFile(const std::filesystem::path &file, bool cut)
{
    const auto text = host::readFile(file, largestSize);
    if (!text.value) {
        return {{}, text.problem ? text.problem : host::fileProblem(file, ENOENT)};
    }
    auto result = read(*text.value, cut);
    if (result.problem) {
        return {{}, file.string() + ": " + *result.problem};
    }
    Beginning &beginning = result.value.beginning;
    const auto beside = host::readFile(file.string() + ".reg");
    if (beginning.program.empty() && !beginning.store && beside.value) {
        const auto bytes = std::as_bytes(std::span(*beside.value));
        beginning.store.emplace(bytes.begin(), bytes.end());
    }
    return result;
}

} // namespace record
