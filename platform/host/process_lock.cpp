// The lock is a record lock: the system knows its holder and drops it with that process.
#include "host/process_lock.h"

#include <cerrno>

#include <fcntl.h>

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

bool ProcessLock::take()
{
    if (!descriptor_) {
        descriptor_ = Descriptor(file_, O_RDWR | O_CREAT);
    }
    struct flock lock = wholeFile();
    return !descriptor_ || fcntl(descriptor_.number(), F_SETLK, &lock) == 0 ||
           (errno != EACCES && errno != EAGAIN);
}

void ProcessLock::nudgeHolder()
{
    struct flock lock = wholeFile();
    if (descriptor_ && fcntl(descriptor_.number(), F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK &&
        lock.l_pid > 0)
    {
        kill(lock.l_pid, nudgeSignal);
    }
}

} // namespace host
