// Reports the first problem with the store.
#include "host/file_host.h"

#include <cstdio>
#include <utility>

namespace host {

FileHost::FileHost(const std::filesystem::path &storeFolder)
    : store_(storeFolder), lock_(storeFolder)
{}

std::optional<std::vector<std::byte>> FileHost::loadStore()
{
    auto [bytes, problem] = store_.load();
    worked(problem);
    return bytes;
}

bool FileHost::saveStore(std::span<const std::byte> bytes)
{
    const bool saved = worked(store_.save(bytes));
    lock_.keep(); // the folder may have been made again
    return saved;
}

void FileHost::report(std::string_view line)
{
    std::fprintf(stderr, "%.*s\n", static_cast<int>(line.size()), line.data());
}

bool FileHost::worked(const Problem &problem)
{
    if (problem && !std::exchange(problemReported_, true)) {
        report("the settings and the game are not kept: " + *problem);
    }
    storeTried(problem);
    return !problem;
}

} // namespace host
