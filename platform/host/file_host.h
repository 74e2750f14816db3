// What all hosts have in common that run on a system with files and processes: the store, the
// lock on it, and the standard error stream.
#pragma once

#include <filesystem>
#include <string_view>

#include "host/host.h"
#include "host/process_lock.h"
#include "host/store_file.h"

namespace host {

class FileHost : public Host
{
public:
    /// The folder should exist; without it the program runs and nothing outlives it.
    explicit FileHost(const std::filesystem::path &storeFolder);

    std::optional<std::vector<std::byte>> loadStore() final;
    bool saveStore(std::span<const std::byte> bytes) final;
    void setStoreAside() final;
    bool runsElsewhere() final { return !lock_.take(); }
    void raiseOther() final { lock_.nudgeHolder(); }
    void report(std::string_view line) final;

protected:
    const std::filesystem::path &storeFolder() const { return store_.folder(); }

private:
    void reportStoreOnce();

    StoreFile store_;
    ProcessLock lock_;
    bool storeReported_ = false;
};

} // namespace host
