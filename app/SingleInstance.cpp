#include "app/SingleInstance.h"

#include <QSocketNotifier>

#ifdef __linux__
#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <thread>
#endif

namespace zorva {

#ifdef __linux__
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds betweenTries{50};

// What the file system says besides "taken" means that it has no locks: that keeps no game from
// starting.
bool IsTaken(int folder) {
    return flock(folder, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

// Only in a folder that is the user's alone: elsewhere another user could have the name first, and
// answer. Named after the folder itself, since several paths may lead to it.
std::string SocketPath(int folder) {
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    struct stat status {};
    if (runtime == nullptr || stat(runtime, &status) != 0) return {};
    if (!S_ISDIR(status.st_mode) || status.st_uid != geteuid() || (status.st_mode & 077) != 0) return {};
    if (fstat(folder, &status) != 0) return {};
    const std::string path = std::string(runtime) + "/zorva32-" + std::to_string(status.st_dev) + "-" +
                             std::to_string(status.st_ino);
    return path.size() < sizeof(sockaddr_un::sun_path) ? path : std::string();
}

int NewSocket() {
    return socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
}

// `Call` is bind or connect.
bool Reach(int (*Call)(int, const sockaddr*, socklen_t), int descriptor, const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.data(), path.size());
    return Call(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

// A program that is frozen takes the connection but never answers.
bool HearsAnswer(int descriptor, Clock::time_point end) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now());
    pollfd wanted{descriptor, POLLIN, 0};
    char answer = 0;
    return poll(&wanted, 1, std::max(0, static_cast<int>(left.count()))) > 0 &&
           recv(descriptor, &answer, 1, 0) == 1;
}

// The connection itself is the call; nothing is written to it.
bool CallFirst(const std::string& path, Clock::time_point end) {
    if (path.empty()) return false;
    const int descriptor = NewSocket();
    const bool heard = Reach(connect, descriptor, path) && HearsAnswer(descriptor, end);
    if (descriptor >= 0) close(descriptor);
    return heard;
}

}  // namespace

SingleInstance::SingleInstance(const std::filesystem::path& dataFolder,
                               std::chrono::milliseconds patience) {
    folder_ = open(dataFolder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder_ < 0) return;
    socketPath_ = SocketPath(folder_);
    const auto end = Clock::now() + patience;
    while (IsTaken(folder_)) {
        const bool called = CallFirst(socketPath_, end);
        state_ = called ? State::CalledFirst : State::Refused;
        if (called || Clock::now() >= end) return;
        std::this_thread::sleep_for(betweenTries);
    }
    state_ = State::First;
    if (!socketPath_.empty()) Listen();
}

// The lock gives the right to the name: a socket that lies there is left from a program that was killed.
void SingleInstance::Listen() {
    unlink(socketPath_.c_str());
    socket_ = NewSocket();
    if (Reach(bind, socket_, socketPath_) && listen(socket_, 4) == 0) return;
    if (socket_ >= 0) close(socket_);
    socket_ = -1;
}

// The lock ends last: until then nobody else uses the name.
SingleInstance::~SingleInstance() {
    delete notifier_;
    if (socket_ >= 0) {
        unlink(socketPath_.c_str());
        close(socket_);
    }
    if (folder_ >= 0) close(folder_);
}

void SingleInstance::OnSecondStart(std::function<void()> called) {
    if (socket_ < 0) return;
    notifier_ = new QSocketNotifier(socket_, QSocketNotifier::Read);
    QObject::connect(notifier_, &QSocketNotifier::activated, notifier_,
                     [this, called = std::move(called)] {
                         const int visitor = accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC);
                         if (visitor < 0) return;
                         const bool heard = send(visitor, "!", 1, MSG_NOSIGNAL) == 1;
                         close(visitor);
                         if (heard) called();  // else it has given up
                     });
}
#else
SingleInstance::SingleInstance(const std::filesystem::path&, std::chrono::milliseconds) {}
SingleInstance::~SingleInstance() = default;
void SingleInstance::Listen() {}
void SingleInstance::OnSecondStart(std::function<void()>) {}
#endif

}  // namespace zorva
