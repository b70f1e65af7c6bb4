// The functions of store/SystemFile.h on Linux and other POSIX systems.

#include "store/SystemFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>

namespace zorva {
namespace {

constexpr mode_t newFileMode = 0666;  // less what the user's mask takes away

FileError LastError() {
    // The standard library has no portable condition for these two.
    if (errno == EDQUOT) return FileError::DiskFull;  // the user's quota
#ifdef ENOMEDIUM
    if (errno == ENOMEDIUM) return FileError::DriveNotReady;
#endif
    return FileErrorOf({errno, std::generic_category()});
}

/// Opens a file and closes it at the end of its scope.
class OpenFile {
public:
    OpenFile(const std::filesystem::path& file, int flags, mode_t mode = newFileMode)
        : descriptor_(::open(file.c_str(), flags | O_CLOEXEC, mode)) {}
    ~OpenFile() {
        if (descriptor_ >= 0) ::close(descriptor_);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    bool IsOpen() const { return descriptor_ >= 0; }
    int Descriptor() const { return descriptor_; }
    /// Network file systems report some failed writes only here. Linux frees the descriptor in any case:
    /// closing it again could close another file.
    FileError Close() {
        const int closed = ::close(descriptor_);
        descriptor_ = -1;
        return closed == 0 ? FileError::None : LastError();
    }

private:
    int descriptor_;
};

// A socket, or a pipe that nobody reads, cannot be opened and gives the error of a missing device.
FileError OpenError(const std::filesystem::path& file) {
    const FileError error = LastError();
    struct stat status {};
    const bool isOther = ::stat(file.c_str(), &status) == 0 && !S_ISREG(status.st_mode);
    return error == FileError::DriveNotReady && isOther ? FileError::PathAccess : error;
}

// Looks at the open file: between a look at the path and the opening the file could be replaced.
FileError SizeOfRegular(int descriptor, std::size_t& size) {
    struct stat status {};
    if (::fstat(descriptor, &status) != 0) return LastError();
    if (!S_ISREG(status.st_mode)) return FileError::PathAccess;
    size = static_cast<std::size_t>(status.st_size);
    return FileError::None;
}

// One call may write only a part, and a signal may interrupt it.
FileError WriteAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return LastError();
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return FileError::None;
}

// Some file systems cannot flush and say so with these two errors; the data are then as safe as can be.
FileError Flush(int descriptor) {
    const bool done = ::fsync(descriptor) == 0 || errno == EINVAL || errno == ENOTSUP;
    return done ? FileError::None : LastError();
}

// Fills `bytes`, which has the file's size. If the file became shorter meanwhile, `bytes` does, too.
FileError ReadAll(int descriptor, std::string& bytes) {
    std::size_t filled = 0;
    while (filled < bytes.size()) {
        const ssize_t got = ::read(descriptor, bytes.data() + filled, bytes.size() - filled);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return LastError();
        if (got == 0) break;
        filled += static_cast<std::size_t>(got);
    }
    bytes.resize(filled);
    return FileError::None;
}

// The permissions of a regular file; those of a new one if there is none. A link has none of its own.
mode_t ModeLike(const std::filesystem::path& like, struct stat& status) {
    const bool isThere = ::lstat(like.c_str(), &status) == 0 && S_ISREG(status.st_mode);
    return isThere ? status.st_mode & 0777U : newFileMode;
}

// As far as the system lets it: only root can give a file away, and some file systems have no
// permissions. The owner comes first, since a change of the owner may take permissions away.
void SetOwnerAndMode(int descriptor, const struct stat& wanted) {
    static_cast<void>(!::fchown(descriptor, wanted.st_uid, wanted.st_gid));
    static_cast<void>(!::fchmod(descriptor, wanted.st_mode & 0777U));
}

// The first error counts, but the file is closed in any case.
FileError WriteAndClose(OpenFile& target, std::string_view bytes, Durability durability) {
    FileError error = WriteAll(target.Descriptor(), bytes);
    if (error == FileError::None && durability == Durability::Flushed) {
        error = Flush(target.Descriptor());
    }
    const FileError closing = target.Close();
    return error == FileError::None ? closing : error;
}

}  // namespace

FileError ReadWholeFile(const std::filesystem::path& file, std::size_t limit, std::string& bytes) {
    bytes.clear();
    // Without O_NONBLOCK, opening a pipe would wait for somebody to open its other end.
    const OpenFile source(file, O_RDONLY | O_NONBLOCK);
    if (!source.IsOpen()) return OpenError(file);
    std::size_t size = 0;
    const FileError error = SizeOfRegular(source.Descriptor(), size);
    if (error != FileError::None) return error;
    if (size > limit) return FileError::OutOfRange;
    bytes.resize(size);
    return ReadAll(source.Descriptor(), bytes);
}

FileError WriteNewFile(const std::filesystem::path& file, std::string_view bytes, Durability durability,
                       const std::filesystem::path& like) {
    struct stat model {};
    const mode_t mode = ModeLike(like, model);
    // Never with more permissions than at the end: between the two calls another user could open it.
    OpenFile target(file, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, mode);
    if (!target.IsOpen()) return LastError();
    if (S_ISREG(model.st_mode)) SetOwnerAndMode(target.Descriptor(), model);
    const FileError error = WriteAndClose(target, bytes, durability);
    if (error != FileError::None) ::unlink(file.c_str());
    return error;
}

FileError AppendToFile(const std::filesystem::path& file,
                       const std::function<std::string(std::size_t)>& bytesForSize) {
    OpenFile target(file, O_WRONLY | O_CREAT | O_APPEND | O_NONBLOCK | O_NOFOLLOW);
    if (!target.IsOpen()) return OpenError(file);
    std::size_t size = 0;
    const FileError error = SizeOfRegular(target.Descriptor(), size);
    if (error != FileError::None) return error;
    return WriteAndClose(target, bytesForSize(size), Durability::Lazy);
}

FileError RenameToFreeName(const std::filesystem::path& from, const std::filesystem::path& to) {
#ifdef RENAME_NOREPLACE
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
        return FileError::None;
    }
    if (errno != EINVAL && errno != ENOSYS) return LastError();
#endif
    // Some file systems lack that call. A plain rename would replace a file, so look first; a file
    // created between the two calls would be lost.
    struct stat status {};
    if (::lstat(to.c_str(), &status) == 0) return FileError::PathAccess;
    return std::rename(from.c_str(), to.c_str()) == 0 ? FileError::None : LastError();
}

FileError FlushFile(const std::filesystem::path& file) {
    const OpenFile opened(file, O_RDONLY | O_NONBLOCK);
    return opened.IsOpen() ? Flush(opened.Descriptor()) : FileError::None;
}

void FlushFolder(const std::filesystem::path& folder) {
    const OpenFile opened(folder, O_RDONLY | O_DIRECTORY);
    if (opened.IsOpen()) ::fsync(opened.Descriptor());
}

}  // namespace zorva
