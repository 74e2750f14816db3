// Loaded before the system's library, this lets one call of a program for a file or a socket fail.
// The file FAILING_CALL, which all processes of the program share, says which one and how, and
// gets a line that says what it was.
//
// All calls are written alike here: their results and arguments are numbers and addresses, which go
// through registers of the same size. So each has its name only for the linker.
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <dlfcn.h>
#include <sys/mman.h>

namespace {

struct Plan
{
    int calls;     ///< so far
    int failing;   ///< number of the call, from 1
    int error;     ///< errno
    char name[52]; ///< only calls of that name count; empty: all, until one has failed
};

using Call = long (*)(long, long, long, long, long, long);

Call systems(const char *name) { return reinterpret_cast<Call>(dlsym(RTLD_NEXT, name)); }

Plan *mapPlan()
{
    constexpr int readAndWrite = 2;
    const auto name = reinterpret_cast<long>(std::getenv("FAILING_CALL"));
    const auto file = static_cast<int>(systems("open")(name, readAndWrite, 0, 0, 0, 0));
    void *plan = mmap(nullptr, sizeof(Plan), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    systems("close")(file, 0, 0, 0, 0, 0);
    return plan == MAP_FAILED ? nullptr : static_cast<Plan *>(plan);
}

bool fails(const char *name)
{
    static Plan *const plan = mapPlan();
    if (!plan || (plan->name[0] != 0 && std::strcmp(plan->name, name) != 0) ||
        __atomic_add_fetch(&plan->calls, 1, __ATOMIC_RELAXED) != plan->failing)
    {
        return false;
    }
    std::snprintf(plan->name, sizeof plan->name, "%s", name);
    errno = plan->error;
    return true;
}

} // namespace

// With `does`, the call is carried out although it fails: a file is closed whatever closing it
// comes to.
#define CALL(name, failure, does)                                                      \
    extern "C" long failing_##name(long, long, long, long, long, long) __asm__(#name); \
    long failing_##name(long a, long b, long c, long d, long e, long f)                \
    {                                                                                  \
        static const Call real = systems(#name);                                       \
        const bool failing = fails(#name);                                             \
        const int error = errno;                                                       \
        const long result = failing && !(does) ? failure : real(a, b, c, d, e, f);     \
        errno = failing ? error : errno;                                               \
        return failing ? failure : result;                                             \
    }

#define CLOSING(name) CALL(name, -1, true)
#define NUMBER(name) CALL(name, -1, false)
#define ADDRESS(name) CALL(name, 0, false)

// clang-format off
CLOSING(close) CLOSING(closedir)
NUMBER(open) NUMBER(open64) NUMBER(openat) NUMBER(read) NUMBER(__read_chk) NUMBER(readv)
NUMBER(pread) NUMBER(pread64) NUMBER(__pread_chk) NUMBER(write) NUMBER(writev) NUMBER(fsync) NUMBER(fdatasync)
NUMBER(rename) NUMBER(unlink) NUMBER(unlinkat) NUMBER(remove) NUMBER(mkdir) NUMBER(truncate)
NUMBER(ftruncate) NUMBER(stat) NUMBER(stat64) NUMBER(lstat) NUMBER(fstat) NUMBER(fstat64) NUMBER(readlink)
NUMBER(fchmod) NUMBER(fchown) NUMBER(fcntl) NUMBER(pipe) NUMBER(fork) NUMBER(socket) NUMBER(connect)
NUMBER(poll) NUMBER(recv) NUMBER(recvmsg) NUMBER(send) NUMBER(sendmsg)
ADDRESS(fopen) ADDRESS(fopen64) ADDRESS(opendir) ADDRESS(fdopendir) ADDRESS(readdir)
