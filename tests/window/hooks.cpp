// Preloaded into the program under test. ZORVA_DICE is the seed of its dice, so that a test throws today
// what it threw yesterday. ZORVA_DIE_AT kills the program in the middle of replacing a file: "write:7"
// when half of the seventh file is written, "rename:7" before that file gets its name, "renamed:7" right
// after. ZORVA_HANGS names a call that never returns, as with a dead disk: "rename" or "fsync".

#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QRandomGenerator>
#include <csignal>
#include <cstdlib>
#include <string>

#include "engine/Chance.h"

namespace {

std::string Variable(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

void DieIfItIsTime(const std::string& place) {
    static const std::string wanted = Variable("ZORVA_DIE_AT");
    static int left = std::atoi(wanted.c_str() + wanted.find(':') + 1);
    if (wanted.compare(0, wanted.find(':'), place) == 0 && --left == 0) raise(SIGKILL);
}

void HangIfWanted(const char* call) {
    while (Variable("ZORVA_HANGS") == call) pause();
}

bool IsFile(int descriptor) {
    struct stat status {};
    return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

template <typename Function>
Function* Real(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

// The dice come from system(). Qt draws from global() now and then while it paints; if it took its
// numbers from the same series, the throws would depend on how often something was painted.
quint64 QRandomGenerator::_fillRange(void* buffer, qptrdiff count) {
    static zorva::Chance dice(std::strtoull(Variable("ZORVA_DICE").c_str(), nullptr, 10));
    static zorva::Chance painting(0);
    zorva::Chance& chance = this == system() ? dice : painting;
    if (buffer == nullptr) return chance.Next();
    auto* words = static_cast<quint32*>(buffer);
    for (qptrdiff i = 0; i < count; ++i) words[i] = static_cast<quint32>(chance.Next());
    return 0;
}

extern "C" int rename(const char* from, const char* to) noexcept {
    static auto* const real = Real<int(const char*, const char*)>("rename");
    DieIfItIsTime("rename");
    HangIfWanted("rename");
    const int result = real(from, to);
    DieIfItIsTime("renamed");
    return result;
}

extern "C" int fsync(int descriptor) {
    HangIfWanted("fsync");
    return Real<int(int)>("fsync")(descriptor);
}

extern "C" ssize_t write(int descriptor, const void* bytes, std::size_t count) {
    static auto* const real = Real<ssize_t(int, const void*, std::size_t)>("write");
    // Shorter writes to files are records of the history, which the system writes whole or not at all.
    if (count <= 100 || !IsFile(descriptor)) return real(descriptor, bytes, count);
    const ssize_t half = real(descriptor, bytes, count / 2);
    DieIfItIsTime("write");
    const ssize_t rest =
        real(descriptor, static_cast<const char*>(bytes) + count / 2, count - count / 2);
    return half < 0 || rest < 0 ? -1 : half + rest;
}
