#pragma once

#include <QDialog>

#include "app/Services.h"

class QKeyEvent;
class QPainter;

namespace zorva {

/// The base of all windows over the board: modal, without the system's frame, with a panel of wood as
/// its ground, in the middle of the board. It follows the board when that is moved, and keeps its own
/// size when the board gets another.
///
/// A window has a fixed size in layout pixels. It draws itself in layout pixels and places its controls,
/// which are its child widgets, in the same pixels. On the screen one of them takes
/// Services::ToLogical(1) logical pixels.
class BoardDialog : public QDialog {
public:
    /// `name` is the object name, `title` what screen readers and the task bar call the window,
    /// `layoutSize` its size in layout pixels.
    BoardDialog(QWidget* parent, const Services& services, const char* name, const QString& title,
                QSize layoutSize);

protected:
    /// A copy, which keeps the scale that the window has opened with. Its controls must get this one.
    const Services& TheServices() const { return services_; }

    /// Moves a child widget to that box of the window, in layout pixels.
    void Place(QWidget* control, const Box& box) const;

    /// Draws the window's ground, below its controls. The painter counts in layout pixels.
    virtual void DrawGround(QPainter& painter);

    /// Handles a key that no control wanted: never a modifier alone, never an automatic repeat. Escape
    /// leaves the window, F1 opens the manual over it, and F12 switches the sound.
    virtual void KeyPressed(QKeyEvent* event);

    /// Closes the window, or refuses to. Escape, Alt+F4 and a close request of the window manager all
    /// come here.
    virtual void Leave();

    /// Where the window's centre belongs when the board lies there, in the screen's logical pixels.
    virtual QPoint CentreOver(const QRect& board) const { return board.center(); }

    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MoveToPlace();

    const Services services_;
    const QSize layoutSize_;
    QWidget* board_ = nullptr;
};

/// Shows the window, returns when it has closed, and gives the keyboard back to the window below, unless
/// another program has it. Events of the whole program run meanwhile.
void RunModal(BoardDialog& dialog);

}  // namespace zorva
