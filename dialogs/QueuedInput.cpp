#include "dialogs/QueuedInput.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

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

}  // namespace

InputSink::InputSink(const QWidget* window) : window_(window) {
    QCoreApplication::instance()->installEventFilter(this);
}

// QWindow objects still get it: Qt keeps its account there of which keys and buttons are down.
bool InputSink::eventFilter(QObject* receiver, QEvent* event) {
    if (!receiver->isWidgetType() || !IsInput(event->type())) return false;
    if (window_ != nullptr && static_cast<QWidget*>(receiver)->window() != window_) return false;
    const QEvent::Type type = event->type();
    hasPress_ |=
        type == QEvent::KeyPress || type == QEvent::MouseButtonPress || type == QEvent::TouchBegin;
    return true;
}

CloseSink::CloseSink() {
    QCoreApplication::instance()->installEventFilter(this);
}

// Already on its way to the QWindow: Qt takes a second request for a widget that handles one for
// granted, and destroys its window.
bool CloseSink::eventFilter(QObject* receiver, QEvent* event) {
    const bool discards = event->type() == QEvent::Close && receiver->isWindowType();
    if (discards) event->ignore();
    return discards;
}

void DiscardQueuedInput() {
    const InputSink sink(nullptr);
    const CloseSink closeSink;
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();  // what the window system has not handed over yet
}

}  // namespace zorva
