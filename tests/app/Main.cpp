#include <gtest/gtest.h>

#include <QApplication>
#include <QThreadPool>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    testing::InitGoogleTest(&argc, argv);
    const int status = RUN_ALL_TESTS();
    // As in the program: a picture that nobody waits for any more must not be painted while Qt
    // ends.
    QThreadPool::globalInstance()->waitForDone();
    return status;
}
