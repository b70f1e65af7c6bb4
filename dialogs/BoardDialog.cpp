#include "dialogs/BoardDialog.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QScreen>
#include <algorithm>

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

// The lowest window: a message may lie over a dialog.
QWidget* BoardBelow(QWidget& widget) {
    QWidget* window = &widget;
    while (window->parentWidget() != nullptr) window = window->parentWidget();
    return window;
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
    if (parent != nullptr) board_ = BoardBelow(*parent);
    if (board_ != nullptr) board_->installEventFilter(this);
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
    if (event->key() == Qt::Key_F12) services_.SwitchSound();
}

void BoardDialog::Leave() {
    reject();
}

void BoardDialog::paintEvent(QPaintEvent*) {
    LayoutPainter painter(this, services_);
    DrawGround(painter);
}

void BoardDialog::keyPressEvent(QKeyEvent* event) {
    if (IsCloseCombination(*event)) {
        Leave();
    } else if (IsKeyStroke(*event)) {
        KeyPressed(event);
    }
}

void BoardDialog::showEvent(QShowEvent* event) {
    MoveToPlace();
    QDialog::showEvent(event);
}

// A close request is no order: the window leaves in its own way, which may refuse.
void BoardDialog::closeEvent(QCloseEvent* event) {
    event->ignore();
    Leave();
}

bool BoardDialog::eventFilter(QObject* watched, QEvent* event) {
    const bool hasMoved = event->type() == QEvent::Move || event->type() == QEvent::Resize;
    if (watched == board_ && hasMoved && isVisible()) MoveToPlace();
    return QDialog::eventFilter(watched, event);
}

// The window places itself: a window manager does not know where it belongs. Over a board
// that lies partly off the screen it keeps on the screen.
void BoardDialog::MoveToPlace() {
    const QScreen* screen = board_ != nullptr ? board_->screen() : QGuiApplication::primaryScreen();
    const QRect room = screen->geometry();
    QRect place(QPoint(), size());
    place.moveCenter(CentreOver(board_ != nullptr ? board_->geometry() : room));
    move(std::max(room.left(), std::min(place.left(), room.right() + 1 - width())),
         std::max(room.top(), std::min(place.top(), room.bottom() + 1 - height())));
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
