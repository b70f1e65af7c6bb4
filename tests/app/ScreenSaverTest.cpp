#include "app/ScreenSaver.h"

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QTest>

namespace zorva::test {
namespace {

using namespace std::chrono_literals;

/// A desktop that writes down what it is asked.
class Desktop : public QDBusVirtualObject {
public:
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
        asked << message.member();
        if (message.member() == "Inhibit") {
            connection.send(message.createReply(QVariantList{++cookie}));
        } else {
            EXPECT_EQ(message.arguments(), QVariantList{cookie});
        }
        return true;
    }

    uint cookie = 41;
    QStringList asked;
};

TEST(ScreenSaverTest, IsHeldOffWhilePiecesMoveAndNoLonger) {
    QProcess bus;
    bus.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
    ASSERT_TRUE(bus.waitForReadyRead()) << "dbus-daemon is missing";
    const QByteArray address = bus.readLine().trimmed();
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);

    QDBusConnection connection = QDBusConnection::connectToBus(QString(address), "desktop");
    Desktop desktop;
    ASSERT_TRUE(connection.registerVirtualObject("/org/freedesktop/ScreenSaver", &desktop));
    ASSERT_TRUE(connection.registerService("org.freedesktop.ScreenSaver"));

    ScreenSaver saver(300ms);
    QTest::qWait(50);
    EXPECT_EQ(desktop.asked, QStringList()) << "before any piece has moved";
    for (int step = 0; step < 8; ++step) {
        saver.HoldOff();
        QTest::qWait(60);
    }
    EXPECT_EQ(desktop.asked, QStringList{"Inhibit"}) << "asked once for all moves, and still held";
    EXPECT_TRUE(QTest::qWaitFor([&] { return desktop.asked.size() == 2; }, 5000));
    saver.HoldOff();
    EXPECT_TRUE(QTest::qWaitFor([&] { return desktop.asked.size() == 4; }, 5000));
    EXPECT_EQ(desktop.asked, (QStringList{"Inhibit", "UnInhibit", "Inhibit", "UnInhibit"}));
    bus.kill();
    bus.waitForFinished();
}

}  // namespace
}  // namespace zorva::test
