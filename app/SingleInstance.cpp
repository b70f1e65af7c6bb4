#include "app/SingleInstance.h"

#include <QCryptographicHash>
#include <QSocketNotifier>

#ifdef __linux__
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#endif

namespace zorva {

#ifdef __linux__
namespace {

// The leading zero of the path makes an abstract name, without a file: nothing is left over when the
// program is killed. Hashed, since a path may be longer than a name can be.
sockaddr_un AddressOf(const std::filesystem::path& folder, socklen_t& length) {
    std::error_code ignored;
    std::filesystem::path whole = std::filesystem::weakly_canonical(folder, ignored);
    if (whole.empty()) whole = folder;
    const std::string text = whole.string() + "#" + std::to_string(getuid());
    const QByteArray hash =
        QCryptographicHash::hash(QByteArray::fromStdString(text), QCryptographicHash::Sha256);
    const std::string name = "zorva32-" + hash.toHex().toStdString();
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path + 1, name.data(), name.size());
    length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + name.size());
    return address;
}

}  // namespace

SingleInstance::SingleInstance(const std::filesystem::path& folder) {
    socket_ = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (socket_ < 0) return;
    socklen_t length = 0;
    const sockaddr_un address = AddressOf(folder, length);
    const auto* generic = reinterpret_cast<const sockaddr*>(&address);
    if (bind(socket_, generic, length) == 0 && listen(socket_, 4) == 0) return;
    // The connection itself is the message; nothing is written to it.
    isSecond_ = errno == EADDRINUSE && connect(socket_, generic, length) == 0;
}

SingleInstance::~SingleInstance() {
    delete notifier_;
    if (socket_ >= 0) close(socket_);
}

void SingleInstance::OnSecondStart(std::function<void()> called) {
    if (socket_ < 0 || isSecond_) return;
    notifier_ = new QSocketNotifier(socket_, QSocketNotifier::Read);
    QObject::connect(notifier_, &QSocketNotifier::activated, notifier_,
                     [this, called = std::move(called)] {
                         const int visitor = accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC);
                         if (visitor < 0) return;
                         close(visitor);
                         called();
                     });
}
#else
SingleInstance::SingleInstance(const std::filesystem::path&) {}
SingleInstance::~SingleInstance() = default;
void SingleInstance::OnSecondStart(std::function<void()>) {}
#endif

}  // namespace zorva
