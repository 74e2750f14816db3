// The lock is a record lock: the system knows its holder and drops it with that process.
#include "host/process_lock.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>

namespace host {
namespace {

constexpr struct flock wholeFile = {
    .l_type = F_WRLCK, .l_whence = SEEK_SET, .l_start = 0, .l_len = 0, .l_pid = 0};

} // namespace

bool ProcessLock::take()
{
    if (!descriptor_) {
        descriptor_ = Descriptor(file_, O_RDWR | O_CREAT);
    }
    struct flock lock = wholeFile;
    taken_ = !descriptor_ || fcntl(descriptor_.number(), F_SETLK, &lock) == 0 ||
             (errno != EACCES && errno != EAGAIN);
    return taken_;
}

void ProcessLock::keep()
{
    struct stat known = {};
    const bool exists =
        descriptor_ && fstat(descriptor_.number(), &known) == 0 && known.st_nlink > 0;
    if (taken_ && !exists) {
        descriptor_ = Descriptor();
        take();
    }
}

void ProcessLock::nudgeHolder()
{
    struct flock lock = wholeFile;
    if (descriptor_ && fcntl(descriptor_.number(), F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK &&
        lock.l_pid > 0)
    {
        kill(lock.l_pid, nudgeSignal);
    }
}

} // namespace host
