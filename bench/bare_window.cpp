// A full-screen window that paints one rectangle: the least that a program with Qt can do. The
// start of the game is measured beside it.
#include <QApplication>
#include <QPainter>
#include <QWidget>

namespace {

class BareWindow : public QWidget {
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), QColor(0x3d, 0x24, 0x14));
    }
};

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    BareWindow window;
    window.setAttribute(Qt::WA_OpaquePaintEvent);
    window.showFullScreen();
    return QApplication::exec();
}
