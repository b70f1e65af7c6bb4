// The functions of store/SystemFile.h on Windows. Files are opened so
// that other programs may read, replace or delete them meanwhile. A file
// that another program does not share stays as it is (PermissionDenied).

#define NOMINMAX
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <algorithm>

#include "store/SystemFile.h"

namespace zorva {
namespace {

constexpr DWORD sharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr std::size_t mostAtOnce = 1U << 20U;  // bytes per call: the system counts them in 32 bits

// The standard library maps most Windows errors to portable conditions, but not these.
FileError LastError() {
    const DWORD error = GetLastError();
    switch (error) {
        case ERROR_NOT_READY: return FileError::DriveNotReady;
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_WRITE_PROTECT: return FileError::PermissionDenied;
        case ERROR_HANDLE_DISK_FULL: return FileError::DiskFull;
        case ERROR_BAD_PATHNAME:
        case ERROR_INVALID_NAME: return FileError::PathAccess;
        default: return FileErrorOf({static_cast<int>(error), std::system_category()});
    }
}

/// Opens a file and closes it at the end of its scope.
class OpenFile {
public:
    OpenFile(const std::filesystem::path& file, DWORD access, DWORD disposition, DWORD flags)
        : handle_(CreateFileW(file.c_str(), access, sharing, nullptr, disposition,
                              FILE_ATTRIBUTE_NORMAL | flags, nullptr)) {}
    ~OpenFile() {
        if (IsOpen()) CloseHandle(handle_);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE Handle() const { return handle_; }
    /// Reports a write that failed as late as here.
    FileError Close() {
        const bool closed = CloseHandle(handle_) != 0;
        handle_ = INVALID_HANDLE_VALUE;
        return closed ? FileError::None : LastError();
    }

private:
    HANDLE handle_;
};

// Folders and links (reparse points) are disk files here,
// too, and must be told apart by their attributes.
FileError SizeOfRegular(HANDLE handle, std::size_t& size) {
    BY_HANDLE_FILE_INFORMATION information;
    LARGE_INTEGER bytes;
    if (GetFileType(handle) != FILE_TYPE_DISK) return FileError::PathAccess;
    if (!GetFileInformationByHandle(handle, &information)) return LastError();
    constexpr DWORD special = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    if ((information.dwFileAttributes & special) != 0) return FileError::PathAccess;
    if (!GetFileSizeEx(handle, &bytes)) return LastError();
    size = static_cast<std::size_t>(bytes.QuadPart);
    return FileError::None;
}

FileError WriteAll(HANDLE handle, std::string_view bytes) {
    while (!bytes.empty()) {
        DWORD written = 0;
        const auto part = static_cast<DWORD>(std::min(bytes.size(), mostAtOnce));
        if (!WriteFile(handle, bytes.data(), part, &written, nullptr)) return LastError();
        bytes.remove_prefix(written);
    }
    return FileError::None;
}

FileError ReadAll(HANDLE handle, std::string& bytes) {
    std::size_t filled = 0;
    while (filled < bytes.size()) {
        DWORD got = 0;
        const auto part = static_cast<DWORD>(std::min(bytes.size() - filled, mostAtOnce));
        if (!ReadFile(handle, bytes.data() + filled, part, &got, nullptr)) return LastError();
        if (got == 0) break;
        filled += got;
    }
    bytes.resize(filled);
    return FileError::None;
}

// The first error counts, but the file is closed in any case.
FileError WriteAndClose(OpenFile& target, std::string_view bytes, Durability durability) {
    FileError error = WriteAll(target.Handle(), bytes);
    if (error == FileError::None && durability == Durability::Flushed &&
        !FlushFileBuffers(target.Handle())) {
        error = LastError();
    }
    const FileError closing = target.Close();
    return error == FileError::None ? closing : error;
}

}  // namespace

FileError ReadWholeFile(const std::filesystem::path& file, std::size_t limit, std::string& bytes) {
    bytes.clear();
    // The flag allows a folder to be opened, so that the
    // error is PathAccess instead of a denied permission.
    const OpenFile source(file, GENERIC_READ, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
    if (!source.IsOpen()) return LastError();
    std::size_t size = 0;
    const FileError error = SizeOfRegular(source.Handle(), size);
    if (error != FileError::None) return error;
    if (size > limit) return FileError::OutOfRange;
    bytes.resize(size);
    return ReadAll(source.Handle(), bytes);
}

// A new file gets the permissions of its folder here, whichever file it is like.
FileError WriteNewFile(const std::filesystem::path& file, std::string_view bytes, Durability durability,
                       const std::filesystem::path&) {
    OpenFile target(file, GENERIC_WRITE, CREATE_NEW, 0);
    if (!target.IsOpen()) return LastError();
    const FileError error = WriteAndClose(target, bytes, durability);
    if (error != FileError::None) DeleteFileW(file.c_str());
    return error;
}

FileError AppendToFile(const std::filesystem::path& file,
                       const std::function<std::string(std::size_t)>& bytesForSize) {
    // Opening a link itself, not its target, lets SizeOfRegular refuse it.
    OpenFile target(file, FILE_APPEND_DATA | FILE_READ_ATTRIBUTES | SYNCHRONIZE, OPEN_ALWAYS,
                    FILE_FLAG_OPEN_REPARSE_POINT);
    if (!target.IsOpen()) return LastError();
    std::size_t size = 0;
    const FileError error = SizeOfRegular(target.Handle(), size);
    if (error != FileError::None) return error;
    return WriteAndClose(target, bytesForSize(size), Durability::Lazy);
}

// Without MOVEFILE_REPLACE_EXISTING the system refuses a name that exists.
FileError RenameToFreeName(const std::filesystem::path& from, const std::filesystem::path& to) {
    return MoveFileExW(from.c_str(), to.c_str(), 0) ? FileError::None : LastError();
}

FileError FlushFile(const std::filesystem::path& file) {
    const OpenFile opened(file, GENERIC_WRITE, OPEN_EXISTING, 0);
    const bool done = !opened.IsOpen() || FlushFileBuffers(opened.Handle());
    return done ? FileError::None : LastError();
}

// NTFS keeps its names in a journal; Windows has no call to flush a folder.
void FlushFolder(const std::filesystem::path&) {}

}  // namespace zorva
