// What the hosts with files and processes share: the store, its lock, and the standard error
// stream.
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
    /// The folder should exist; without it the program runs, but nothing is kept.
    explicit FileHost(const std::filesystem::path &storeFolder);

    std::optional<std::vector<std::byte>> loadStore() final;
    bool saveStore(std::span<const std::byte> bytes) final;
    void setStoreAside() final { worked(store_.setAside()); }
    bool runsElsewhere() final { return !lock_.take(); }
    void raiseOther() final { lock_.nudgeHolder(); }
    void report(std::string_view line) final;

protected:
    /// The store was used: what went wrong, or nothing any more.
    virtual void storeTried(const Problem &) {}
    const std::filesystem::path &storeFolder() const { return store_.folder(); }

private:
    bool worked(const Problem &problem);

    StoreFile store_;
    ProcessLock lock_;
    bool problemReported_ = false;
};

} // namespace host
