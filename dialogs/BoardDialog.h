#pragma once

#include <QDialog>

#include "app/Services.h"

class QKeyEvent;
class QPainter;

namespace zorva {

/// What all windows over the board share: modal, without the system's frame, of a size given in
/// pixels of the layout, in the middle of the board's part of the screen. A window draws itself in
/// pixels of the layout; its controls are children placed in the same pixels.
class BoardDialog : public QDialog {
public:
    /// `name` is the window's own name, `title` what screen readers and the task bar call it. The
    /// services must outlive the window.
    BoardDialog(QWidget* parent, const Services& services, const char* name, const QString& title,
                QSize layoutSize);

protected:
    const Services& TheServices() const { return services_; }

    /// Puts a control there.
    void Place(QWidget* control, const Box& box) const;

    /// Draws the window's own ground; the painter counts in pixels of the layout.
    virtual void DrawGround(QPainter& painter);

    /// A key that nothing else in the window wanted; never a modifier or a repeat.
    virtual void KeyPressed(QKeyEvent* event);

    /// The window is to go: by its key, by the window manager or by Escape.
    virtual void Leave();

    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void MoveToMiddle();

    const Services& services_;
    const QSize layoutSize_;
};

/// Runs the window until it is left and gives the keyboard back to the window below.
void RunModal(BoardDialog& dialog);

}  // namespace zorva
