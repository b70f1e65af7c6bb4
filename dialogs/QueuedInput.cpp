#include "dialogs/QueuedInput.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

namespace zorva {
namespace {

bool IsInput(QEvent::Type type) {
    switch (type) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::InputMethod:
        case QEvent::Shortcut:
        case QEvent::ContextMenu:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::TabletPress:
        case QEvent::TabletRelease:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd: return true;
        default: return false;
    }
}

/// Swallows input on its way to the widgets. The windows below them still see it, so that the
/// Qt's account of what is pressed stays right.
class InputSink : public QObject {
public:
    bool eventFilter(QObject* receiver, QEvent* event) override {
        if (receiver->isWindowType()) return false;
        if (event->type() == QEvent::Close && event->spontaneous()) {
            event->ignore();
            return true;
        }
        return IsInput(event->type());
    }
};

}  // namespace

void DiscardQueuedInput() {
    InputSink sink;
    QCoreApplication::instance()->installEventFilter(&sink);
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

}  // namespace zorva
