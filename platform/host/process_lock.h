// One process at a time on a store: a lock that ends with the process that holds it, however
// that ends, and a signal that asks that process to show itself.
#pragma once

#include <csignal>
#include <filesystem>

#include "host/descriptor.h"

namespace host {

/// What nudgeHolder sends. A process that does not listen for it ignores it.
constexpr int nudgeSignal = SIGURG;

class ProcessLock
{
public:
    /// The lock is on the file "lock" in `folder`; nothing is touched yet.
    explicit ProcessLock(const std::filesystem::path &folder) : file_(folder / "lock") {}

    /// Takes the lock unless another process holds it, and only then returns false: in a folder
    /// that cannot be locked at all, every process may go on.
    bool take();
    /// Takes the lock again if it was taken and its file has been deleted.
    void keep();
    /// Sends nudgeSignal to the process that holds the lock.
    void nudgeHolder();

private:
    std::filesystem::path file_;
    Descriptor descriptor_;
    bool taken_ = false;
};

} // namespace host
