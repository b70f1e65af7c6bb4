#include "tests/dialogs/WindowFixture.h"

#include <QApplication>
#include <QPointer>
#include <QTest>

namespace zorva {

void WindowFixture::UseScreen(QSize size) {
    const Layout layout = LayoutFor(size.width(), size.height());
    cursors.SetScale(layout.Unit, 1);
    services.reset(new Services{artwork, cursors, layout, 1,
                                [this](Sound sound) { sounds.push_back(sound); },
                                [this](Short n) { pauses.push_back(n); }, nullptr,
                                [this](QWidget* over) { readOver << over->objectName(); },
                                [this](const QString& sentence) { narrated << sentence; }});
    board.resize(size);
}

QWidget* WindowFixture::Control(QWidget& window, const QString& name) {
    auto* control = window.findChild<QWidget*>(name);
    if (!control) throw std::runtime_error("no control named " + name.toStdString());
    return control;
}

QPoint WindowFixture::InLogical(QPointF point) const {
    return {qFloor(services->ToLogical(point.x())), qFloor(services->ToLogical(point.y()))};
}

void WindowFixture::ClickAt(QWidget* control, QPointF point) const {
    QTest::mouseClick(control, Qt::LeftButton, {}, InLogical(point));
}

void WindowFixture::Show(QWidget& window) {
    window.show();
    if (!QTest::qWaitForWindowActive(&window)) throw std::runtime_error("the window does not open");
}

Person::Person(std::function<void(QWidget& window)> action)
    : action_(std::move(action)), below_(QApplication::activeModalWidget()) {
    QObject::connect(&timer_, &QTimer::timeout, [this] { Act(); });
    timer_.start(1);
}

void Person::Act() {
    const QPointer<QWidget> window = QApplication::activeModalWidget();
    if (busy_ || !window || window == below_ || !window->isActiveWindow()) return;
    busy_ = true;
    action_(*window);
    leftOpen_ = window && window->isVisible();
    if (leftOpen_) window->close();
    busy_ = false;
}

bool HasInk(const QImage& picture, const QRect& part) {
    const QRect area = part.intersected(picture.rect());
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (qGray(picture.pixel(x, y)) < 110) return true;
        }
    }
    return false;
}

}  // namespace zorva
