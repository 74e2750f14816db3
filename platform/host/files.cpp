// POSIX calls, because the order in which things reach the disk matters.
#include "host/files.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <utility>

#include <aio.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "host/descriptor.h"

namespace host {
namespace {

/// Some file systems cannot do that; the bytes are as safe there as they can be.
bool cannotSync(int error) { return error == EINVAL || error == ENOSYS; }

bool bringToDisk(const Descriptor &file)
{
    return uninterrupted([&] { return fsync(file.number()); }) == 0 || cannotSync(errno);
}

/// Asks the system to bring a file to the disk while the program goes on.
class DiskRequest
{
public:
    explicit DiskRequest(const Descriptor &file)
    {
        request_->aio_fildes = file.number();
        request_->aio_sigevent.sigev_notify = SIGEV_NONE;
    }
    /// The system writes into the request until it is done.
    ~DiskRequest()
    {
        const aiocb *own = request_.get();
        while (isPending()) {
            aio_suspend(&own, 1, nullptr);
        }
    }

    /// False when the last request has failed; errno says why.
    bool worked() const
    {
        errno = aio_error(request_.get());
        return errno == 0 || isPending() || cannotSync(errno);
    }
    /// Does nothing while the last one is pending. False when none can be made.
    bool make() { return isPending() || aio_fsync(O_SYNC, request_.get()) == 0; }

private:
    bool isPending() const { return aio_error(request_.get()) == EINPROGRESS; }

    std::unique_ptr<aiocb> request_ = std::make_unique<aiocb>();
};

/// The folder of a file; none when it may not be read.
Descriptor folderOf(const std::filesystem::path &file)
{
    return {file.has_parent_path() ? file.parent_path() : ".", O_RDONLY | O_DIRECTORY};
}

/// A file that grows. Its bytes are brought to the disk again and again, its name once.
class GrowingFile
{
public:
    GrowingFile(Descriptor file, Descriptor folder)
        : file_(std::move(file)), folder_(std::move(folder)), bytes_(file_), name_(folder_),
          named_(!folder_)
    {}

    bool append(std::string_view text) const
    {
        return file_.writeAll(std::as_bytes(std::span(text)));
    }
    /// False when that failed the last time, or cannot be asked for; errno says why.
    bool requestDisk()
    {
        if (!bytes_.worked() || !name_.worked()) {
            return false;
        }
        named_ = named_ || name_.make();
        return named_ && bytes_.make();
    }

private:
    const Descriptor file_;
    const Descriptor folder_;
    DiskRequest bytes_;
    DiskRequest name_;
    bool named_;
};

/// The owner of another user's file stays only if this one may give files away.
void copyOwner(const std::filesystem::path &from, const Descriptor &to)
{
    struct stat known = {};
    if (stat(from.c_str(), &known) == 0) {
        const bool kept = fchown(to.number(), known.st_uid, known.st_gid) == 0;
        fchmod(to.number(), known.st_mode & (kept ? 07777U : 0777U));
    }
}

/// errno is that of the step that failed.
bool writeBeside(const std::filesystem::path &fresh, const std::filesystem::path &file,
                 std::span<const std::byte> bytes)
{
    unlink(fresh.c_str()); // one that a crash has left
    Descriptor target(fresh, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW);
    if (!target) {
        return false;
    }
    copyOwner(file, target);
    return target.writeAll(bytes) && bringToDisk(target) && target.close();
}

} // namespace

Result<std::optional<std::string>> readFile(const std::filesystem::path &file, std::size_t largest)
{
    const Descriptor source(file, O_RDONLY | O_NONBLOCK); // a pipe would wait for its other end
    struct stat known = {};
    if (!source || fstat(source.number(), &known) != 0) {
        return {{}, errno == ENOENT ? std::nullopt : Problem(fileProblem(file))};
    }
    if (!S_ISREG(known.st_mode)) {
        return {{}, file.string() + ": not a regular file"};
    }
    auto text = source.readAll(largest);
    return {text, text ? std::nullopt : Problem(fileProblem(file))};
}

std::string readEnd(const std::filesystem::path &file, std::size_t size)
{
    const Descriptor source(file, O_RDONLY | O_NONBLOCK);
    struct stat known = {};
    if (!source || fstat(source.number(), &known) != 0 || !S_ISREG(known.st_mode)) {
        return {};
    }
    const off_t start = known.st_size - static_cast<off_t>(size);
    lseek(source.number(), std::max<off_t>(start, 0), SEEK_SET);
    return source.readAll(size).value_or("");
}

Problem replaceFile(const std::filesystem::path &file, std::span<const std::byte> bytes)
{
    if (bytes.size() > largestFile) {
        return fileProblem(file, EFBIG);
    }
    const std::filesystem::path place = linkedFile(file);
    const std::filesystem::path fresh = place.string() + ".new";
    if (!writeBeside(fresh, place, bytes) || std::rename(fresh.c_str(), place.c_str()) != 0) {
        const int error = errno;
        unlink(fresh.c_str());
        return fileProblem(place, error);
    }
    // The new name is safe once the folder is on the disk.
    const Descriptor folder = folderOf(place);
    const bool safe = folder ? bringToDisk(folder) : errno == EACCES; // that needs no permission
    return safe ? std::nullopt : Problem(fileProblem(place));
}

Result<Append> makeFile(const std::filesystem::path &file, std::function<bool()> bringToDisk)
{
    Descriptor made(file, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_APPEND);
    if (!made) {
        return {{}, errno == EEXIST ? file.string() + ": exists already" : fileProblem(file)};
    }
    const auto target = std::make_shared<GrowingFile>(std::move(made), folderOf(file));
    return {[target, file, bringToDisk = std::move(bringToDisk)](std::string_view text) {
                const bool kept = target->append(text) &&
                                  (!bringToDisk || !bringToDisk() || target->requestDisk());
                return kept ? std::nullopt : Problem(fileProblem(file));
            },
            {}};
}

Problem appendToFile(const std::filesystem::path &file, std::string_view text)
{
    const Descriptor target(file, O_WRONLY | O_APPEND | O_NOFOLLOW);
    return target && target.writeAll(std::as_bytes(std::span(text))) ? std::nullopt
                                                                     : Problem(fileProblem(file));
}

std::filesystem::path linkedFile(std::filesystem::path file)
{
    constexpr int longestChain = 40; // as the system has it
    for (int i = 0; i < longestChain; ++i) {
        std::error_code isNone;
        const auto next = std::filesystem::read_symlink(file, isNone);
        if (isNone) {
            break;
        }
        file = file.parent_path() / next;
    }
    return file;
}

bool isTaken(const std::filesystem::path &file)
{
    struct stat known = {};
    return lstat(file.c_str(), &known) == 0;
}

} // namespace host
