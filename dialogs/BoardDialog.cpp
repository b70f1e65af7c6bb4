#include "dialogs/BoardDialog.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QScreen>

#include "app/KeyStrokes.h"
#include "dialogs/Decoration.h"
#include "dialogs/Geometry.h"

namespace zorva {
namespace {

// Window managers close a window by Alt+F4. Where none runs, or it leaves the keys alone, the window
// does.
bool IsCloseCombination(const QKeyEvent& event) {
    return event.key() == Qt::Key_F4 && event.modifiers().testFlag(Qt::AltModifier);
}

}  // namespace

BoardDialog::BoardDialog(QWidget* parent, const Services& services, const char* name,
                         const QString& title, QSize layoutSize)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint),
      services_(services),
      layoutSize_(layoutSize) {
    setObjectName(name);
    setWindowTitle(title);
    setAccessibleName(title);
    setModal(true);
    setAttribute(Qt::WA_OpaquePaintEvent);  // the panel covers all of it
    setCursor(Qt::ArrowCursor);
    setFixedSize(qRound(services.ToLogical(layoutSize.width())),
                 qRound(services.ToLogical(layoutSize.height())));
}

void BoardDialog::Place(QWidget* control, const Box& box) const {
    PlaceControl(control, box, services_);
}

void BoardDialog::DrawGround(QPainter& painter) {
    decoration::DrawPanel(painter, QRectF(QPointF(), layoutSize_), services_);
}

void BoardDialog::KeyPressed(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) Leave();
    if (event->key() == Qt::Key_F1) {
        services_.PlaySound(Sound::PageOpens);
        services_.ShowManual(this);
    }
}

void BoardDialog::Leave() {
    reject();
}

void BoardDialog::paintEvent(QPaintEvent*) {
    LayoutPainter painter(this, services_);
    DrawGround(painter);
}
    if (event->key() == Qt::Key_F12) services_.SwitchSound();

void BoardDialog::keyPressEvent(QKeyEvent* event) {
    if (IsCloseCombination(*event)) {
        Leave();
    } else if (IsKeyStroke(*event)) {
        KeyPressed(event);
    }
}

void BoardDialog::showEvent(QShowEvent* event) {
    MoveToMiddle();
    QDialog::showEvent(event);
}

// A close request is no order: the window leaves in its own way, which may refuse.
void BoardDialog::closeEvent(QCloseEvent* event) {
    event->ignore();
    Leave();
}

// The window places itself: a window manager knows nothing of the board. On a screen narrower than 5:4
// the board uses only a part of it, whose place the layout gives in device pixels.
void BoardDialog::MoveToMiddle() {
    const QWidget* below = parentWidget() ? parentWidget()->window() : nullptr;
    const QScreen* screen = below ? below->screen() : QGuiApplication::primaryScreen();
    const Layout& layout = services_.layout;
    const double ratio = services_.devicePixelRatio;
    const QPointF used(layout.DeviceLeft / ratio, layout.DeviceTop / ratio);
    const QSizeF room(layout.DeviceWidth / ratio, layout.DeviceHeight / ratio);
    move(screen->geometry().topLeft() + used.toPoint() +
         QPoint(qRound((room.width() - width()) / 2), qRound((room.height() - height()) / 2)));
}

// Events run meanwhile, and the window below may be deleted by one: so the guarded pointer. The title
// closes by itself, perhaps while the player works with another program.
void RunModal(BoardDialog& dialog) {
    const QPointer<QWidget> below = dialog.parentWidget() ? dialog.parentWidget()->window() : nullptr;
    dialog.exec();
    const bool playerIsHere = QGuiApplication::applicationState() == Qt::ApplicationActive;
    if (playerIsHere && below && below->isVisible()) below->activateWindow();
}

}  // namespace zorva
