#include "dialogs/QueuedInput.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

namespace zorva {
namespace {

// What a person does. Moves of the mouse are none: they press nothing, and cursors follow them.
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

/// Discards input on its way to the widgets, close requests of the window manager included. QWindow
/// objects still get it: Qt keeps its account there of which keys and buttons are down.
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
    QCoreApplication::processEvents();  // what the window system has not handed over yet
}

}  // namespace zorva
