// One process at a time on a store: a lock that ends with the process that holds it, however
// that ends, and a nudge for whoever holds it.
#pragma once

#include <csignal>
#include <filesystem>

namespace host {

/// What a nudged process gets. A process that is not prepared for it does not notice.
constexpr int nudgeSignal = SIGURG;

class ProcessLock
{
public:
    /// The lock is on the file "lock" in `folder`; nothing is touched yet.
    explicit ProcessLock(const std::filesystem::path &folder);
    ProcessLock(const ProcessLock &) = delete;
    ProcessLock &operator=(const ProcessLock &) = delete;
    ~ProcessLock();

    /// Takes the lock unless another process holds it. False only then: where locks cannot be
    /// had at all (a folder that cannot be written), this process may as well go on.
    bool take();
    /// Sends nudgeSignal to the process that holds the lock.
    void nudgeHolder();

private:
    std::filesystem::path file_;
    int descriptor_ = -1;
};

} // namespace host
