#include "app/ScreenSaver.h"

#ifdef ZORVA_WITH_DBUS
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFileInfo>
#endif

namespace zorva {

ScreenSaver::ScreenSaver(std::chrono::milliseconds rest) {
    rest_.setSingleShot(true);
    rest_.setInterval(rest);
    connect(&rest_, &QTimer::timeout, this, [this] { LetGo(); });
}

void ScreenSaver::HoldOff() {
    if (hold_ == Hold::Refused) return;
    rest_.start();
    if (hold_ == Hold::None) Ask();
}

#ifdef ZORVA_WITH_DBUS
namespace {

// Qt would start a bus for a session that has none.
bool HasBus() {
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus");
}

QDBusPendingCall Call(const QString& method, const QVariantList& arguments) {
    QDBusMessage message =
        QDBusMessage::createMethodCall("org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver",
                                       "org.freedesktop.ScreenSaver", method);
    message.setArguments(arguments);
    return QDBusConnection::sessionBus().asyncCall(message);
}

}  // namespace

void ScreenSaver::Ask() {
    if (!HasBus()) return Answered(false, 0);
    hold_ = Hold::Asked;
    auto* answer = new QDBusPendingCallWatcher(
        Call("Inhibit", {QStringLiteral("zorva32"), QStringLiteral("Partida en curso")}), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<uint> reply = *answer;
        Answered(reply.isValid(), reply.isValid() ? reply.value() : 0);
        answer->deleteLater();
    });
}

// When the rest was over before the answer came, the hold ends at once.
void ScreenSaver::Answered(bool granted, uint cookie) {
    hold_ = granted ? Hold::Held : Hold::Refused;
    cookie_ = cookie;
    if (granted && !rest_.isActive()) LetGo();
}

void ScreenSaver::LetGo() {
    if (hold_ != Hold::Held) return;
    hold_ = Hold::None;
    Call("UnInhibit", {cookie_});
}
#else
void ScreenSaver::Ask() {
    hold_ = Hold::Refused;
}
void ScreenSaver::LetGo() {}
#endif

}  // namespace zorva
