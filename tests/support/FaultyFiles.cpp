#include "tests/support/FaultyFiles.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdarg>
#include <cstdio>
#include <thread>

namespace zorva::test {
namespace {

thread_local int callsLeft = 0;
thread_local Fault armed = Fault::None;

// Whether the call that is made now fails.
bool Fails(bool canBeShort = false) {
    if (armed == Fault::None || (callsLeft > 0 && --callsLeft > 0)) return false;
    if (armed == Fault::Kill) _exit(9);
    if (armed == Fault::IsShort && !canBeShort) return false;
    if (armed == Fault::Once) armed = Fault::None;
    errno = ENOSPC;
    return true;
}

template <typename Function>
Function* Real(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

void FailAt(int call, Fault fault) {
    callsLeft = call;
    armed = fault;
}

}  // namespace zorva::test

using namespace zorva::test;

extern "C" int open(const char* path, int flags, ...) {
    va_list more;
    va_start(more, flags);
    const auto mode = va_arg(more, mode_t);
    va_end(more);
    return Fails() ? -1 : Real<int(const char*, int, ...)>("open")(path, flags, mode);
}

extern "C" ssize_t write(int descriptor, const void* bytes, std::size_t count) {
    static auto* const real = Real<ssize_t(int, const void*, std::size_t)>("write");
    if (!Fails(true)) return real(descriptor, bytes, count);
    if (armed != Fault::IsShort) return -1;
    armed = Fault::FromNowOn;
    return real(descriptor, bytes, count / 2);
}

extern "C" int close(int descriptor) {
    const bool fails = Fails();
    const int closed = Real<int(int)>("close")(descriptor);
    return fails ? -1 : closed;
}

extern "C" int rename(const char* from, const char* to) noexcept {
    return Fails() ? -1 : Real<int(const char*, const char*)>("rename")(from, to);
}

extern "C" int fsync(int descriptor) {
    ++flushes;
    while (flushHangs) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    errno = flushError;
    return errno != 0 ? -1 : Real<int(int)>("fsync")(descriptor);
}
