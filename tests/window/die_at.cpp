// Loaded before the program: kills it in the middle of replacing a file. ZORVA_DIE_AT says where and at
// which time: "write:7" after half of the seventh file is written, "rename:7" when it is written and
// has not its name yet, "renamed:7" when it has just got it. ZORVA_DISK_FULL_WHILE names a file: as long
// as it exists the disk is full.

#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

bool IsTimeFor(const char* place) {
    static const char* const wanted = std::getenv("ZORVA_DIE_AT");
    const std::size_t length = std::strlen(place);
    if (wanted == nullptr || std::strncmp(wanted, place, length) != 0 || wanted[length] != ':')
        return false;
    static int left = std::atoi(wanted + length + 1);
    return --left == 0;
}

bool IsDiskFull() {
    static const char* const sign = std::getenv("ZORVA_DISK_FULL_WHILE");
    return sign != nullptr && access(sign, F_OK) == 0;
}

template <typename Function>
Function* Real(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

bool IsFile(int descriptor) {
    struct stat status {};
    return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

}  // namespace

extern "C" int rename(const char* from, const char* to) noexcept {
    static auto* const real = Real<int(const char*, const char*)>("rename");
    if (IsTimeFor("rename")) raise(SIGKILL);
    const int result = real(from, to);
    if (IsTimeFor("renamed")) raise(SIGKILL);
    return result;
}

extern "C" ssize_t write(int descriptor, const void* bytes, std::size_t count) {
    static auto* const real = Real<ssize_t(int, const void*, std::size_t)>("write");
    if (IsFile(descriptor) && IsDiskFull()) {
        errno = ENOSPC;
        return -1;
    }
    // A record of the history is shorter, and the system writes it whole or not at all.
    if (count > 100 && IsFile(descriptor) && IsTimeFor("write")) {
        if (real(descriptor, bytes, count / 2) >= 0) raise(SIGKILL);
    }
    return real(descriptor, bytes, count);
}
