#include "dialogs/careta.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QWindow>
#include <utility>

#include "app/Artwork.h"
#include "app/KeyStrokes.h"
#include "dialogs/Decoration.h"
#include "dialogs/Geometry.h"

namespace zorva {
namespace {

constexpr QSize windowSize(460, 190);
constexpr Box areaBox{20, 20, TitleArtwork::Width, TitleScroll::First};
constexpr int tick = 8;            // milliseconds, a little less than a step
constexpr int shortTick = 1;       // once the player has broken it off
constexpr int boardIsThere = 250;  // milliseconds after which it fills the screen

}  // namespace

careta::careta(QWidget* parent, const Services& services, std::function<void()> openBoard)
    : BoardDialog(parent, services, "careta", "Zorva", windowSize),
      openBoard_(std::move(openBoard)),
      area_(new QWidget(this)) {
    area_->setObjectName("Pic_Careta");
    area_->setAccessibleName("Zorva, Parchís");
    area_->setFocusPolicy(Qt::StrongFocus);
    area_->installEventFilter(this);
    Place(area_, areaBox);
    area_->setFocus();
    setCursor(Qt::BlankCursor);
    // The board opens behind the title and may have the keyboard for a moment: its keys end the title
    // too.
    QCoreApplication::instance()->installEventFilter(this);
    timer_.setTimerType(Qt::PreciseTimer);
    connect(&timer_, &QTimer::timeout, this, [this] { MakeSteps(); });
    timer_.start(tick);
}

void careta::DrawGround(QPainter& painter) {
    BoardDialog::DrawGround(painter);
    decoration::DrawSunkenFrame(painter, ToRect(areaBox));
}

// The wood that the title passes over: that of the window, with a shadow as if sunk into it.
const QPixmap& careta::Ground() {
    if (!ground_.isNull()) return ground_;
    const double ratio = TheServices().devicePixelRatio;
    const double unit = TheServices().layout.Unit;
    const QSize size = (QSizeF(area_->size()) * ratio).toSize();
    ground_ = decoration::PanelWood(windowSize, TheServices())
                  .copy(QRect((QPointF(areaBox.x, areaBox.y) * unit).toPoint(), size));
    QPainter painter(&ground_);
    painter.scale(unit, unit);
    painter.fillRect(QRectF(0, 0, areaBox.width, areaBox.height), QColor(0, 0, 0, 110));
    decoration::DrawInnerShadow(painter, QRectF(0, 0, areaBox.width, areaBox.height));
    painter.end();
    ground_.setDevicePixelRatio(ratio);
    return ground_;
}

// A key that is sent to another window of the program, the board, ends the title and does nothing else.
bool careta::EndsTitle(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !watched->isWindowType() || !isVisible()) return false;
    if (watched == static_cast<QObject*>(windowHandle())) return false;
    if (IsKeyStroke(static_cast<QKeyEvent&>(*event))) Stop();
    return true;
}

bool careta::eventFilter(QObject* watched, QEvent* event) {
    if (EndsTitle(watched, event)) return true;
    if (watched != area_ || event->type() != QEvent::Paint)
        return BoardDialog::eventFilter(watched, event);
    DrawTitle();
    return true;
}

void careta::DrawTitle() {
    QPainter painter(area_);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(QPointF(), Ground());
    // The first painting shows the wood alone: its letters would delay the board.
    if (!logo_ && clock_.isValid() && !scroll_.IsOver()) logo_.emplace(TheServices());
    if (logo_) logo_->Draw(painter, scroll_.Position(), TheServices());
    wasPainted_ = true;
}

// On Wayland a window cannot be raised. The board, which has opened later, covers the title until that
// opens again.
void careta::OpenAgain() {
    if (!isVisible()) return;
    windowHandle()->hide();
    windowHandle()->show();
}

// The board takes the keyboard when it opens, which the title needs back.
void careta::Begin() {
    openBoard_();
    activateWindow();
    if (QGuiApplication::platformName() == "wayland")
        QTimer::singleShot(boardIsThere, this, [this] { OpenAgain(); });
    clock_.start();
}

// As many steps as are due by the clock: a timer's ticks are not even enough to scroll by.
void careta::MakeSteps() {
    if (!wasPainted_) return;
    if (!clock_.isValid()) return Begin();
    for (int due = steps_.Due(static_cast<double>(clock_.elapsed())); due > 0 && !scroll_.IsOver();
         --due) {
        scroll_.Step();
    }
    if (!scroll_.IsOver()) return area_->update();
    timer_.stop();
    accept();
}

void careta::Stop() {
    if (scroll_.IsOver()) return;
    scroll_.Stop();
    timer_.setInterval(shortTick);
}

void careta::KeyPressed(QKeyEvent*) {
    Stop();
}

void careta::Leave() {
    Stop();
}

void careta::mousePressEvent(QMouseEvent*) {
    Stop();
}

void ShowSplash(QWidget* parent, const Services& services, const std::function<void()>& openBoard) {
    careta window(parent, services, openBoard);
    RunModal(window);
}

}  // namespace zorva
