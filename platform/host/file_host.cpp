// The part of a host that is made of files and processes.
#include "host/file_host.h"

#include <cstdio>
#include <string>

namespace host {

FileHost::FileHost(const std::filesystem::path &storeFolder)
    : store_(storeFolder), lock_(storeFolder)
{}

std::optional<std::vector<std::byte>> FileHost::loadStore()
{
    auto bytes = store_.load();
    reportStoreOnce();
    return bytes;
}

bool FileHost::saveStore(std::span<const std::byte> bytes)
{
    const bool saved = store_.save(bytes);
    reportStoreOnce();
    return saved;
}

void FileHost::setStoreAside()
{
    store_.setAside();
    reportStoreOnce();
}

void FileHost::report(std::string_view line)
{
    std::fprintf(stderr, "%.*s\n", static_cast<int>(line.size()), line.data());
}

void FileHost::reportStoreOnce()
{
    if (!store_.problem().empty() && !storeReported_) {
        storeReported_ = true;
        report("the settings and the game are not kept: " + store_.problem());
    }
}

} // namespace host
