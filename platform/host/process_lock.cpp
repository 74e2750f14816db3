// The lock is a record lock: the system names its holder, and drops it with the process.
#include "host/process_lock.h"

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace host {
namespace {

struct flock wholeFile()
{
    struct flock lock
    {
    };
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    return lock;
}

} // namespace

ProcessLock::ProcessLock(const std::filesystem::path &folder) : file_(folder / "lock") {}

ProcessLock::~ProcessLock()
{
    if (descriptor_ >= 0) {
        close(descriptor_);
    }
}

bool ProcessLock::take()
{
    if (descriptor_ < 0) {
        descriptor_ = open(file_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    }
    struct flock lock = wholeFile();
    return descriptor_ < 0 || fcntl(descriptor_, F_SETLK, &lock) == 0 ||
           (errno != EACCES && errno != EAGAIN);
}

void ProcessLock::nudgeHolder()
{
    struct flock lock = wholeFile();
    if (descriptor_ >= 0 && fcntl(descriptor_, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK &&
        lock.l_pid > 0)
    {
        kill(lock.l_pid, nudgeSignal);
    }
}

} // namespace host
