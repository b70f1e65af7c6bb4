#pragma once

#include <QObject>

class QWidget;

namespace zorva {

/// Discards, for as long as it lives, keys and mouse buttons for a window and its controls; with null
/// for all windows.
class InputSink : public QObject {
public:
    explicit InputSink(const QWidget* window);
    bool eventFilter(QObject* receiver, QEvent* event) override;
    /// Whether a key, a button or a finger that was pressed has been discarded.
    bool HasPress() const { return hasPress_; }

private:
    const QWidget* const window_;
    bool hasPress_ = false;
};

/// Discards, for as long as it lives, the window manager's requests to close a window.
class CloseSink : public QObject {
public:
    CloseSink();
    bool eventFilter(QObject* receiver, QEvent* event) override;
};

/// Discards every key and mouse button that was pressed before now and not handled yet: it was meant for
/// what was on the screen then, not for the window that opens next. Handles all other waiting events, so
/// timers and repaints run inside the call. To be called before a message opens, because any key answers
/// a message.
void DiscardQueuedInput();

}  // namespace zorva
