#include "app/Mesa.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QToolTip>
#include <QtMath>
#include <cmath>
#include <utility>

#include "app/Fonts.h"
#include "app/KeyStrokes.h"
#include "app/LargeKeys.h"
#include "app/MenuButtons.h"
#include "app/MoveLog.h"
#include "app/Palette.h"
#include "app/RecorderStrip.h"
#include "app/WoodenKey.h"

namespace zorva {

namespace {

// Within this time after a dialog has closed, Qt (6.4, X11) may report that no window is active although
// the board has the keyboard, and never correct it.
constexpr int lostFocusMilliseconds = 1000;

constexpr QSize smallestWindow(640, 480);  // in device pixels
constexpr double firstShareOfScreen = 0.75;
constexpr int restoringMilliseconds = 100;

}  // namespace

Mesa::Mesa(const GameState& state, const Settings& settings)
    : state_(state), settings_(settings), services_{artwork_, cursors_, {}, 1, {}, {}, &pacer_} {
    setAccessibleName("Tablero de parchís");
    setObjectName("Mesa");
    setWindowTitle("Zorva");
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    scene_ = std::make_unique<BoardScene>(state, settings, artwork_, [this](const QRect& device) {
        const double ratio = services_.devicePixelRatio;
        update(QRectF(QPointF(device.topLeft()) / ratio, QSizeF(device.size()) / ratio).toAlignedRect());
    });
    buttons_ = std::make_unique<MenuButtons>(this, services_, [this](int button) {
        if (ButtonPressed) ButtonPressed(button);
    });
    strip_ = new RecorderStrip(this, services_);
    log_ = new MoveLog(this, services_);
    resting_.setSingleShot(true);
    connect(&resting_, &QTimer::timeout, this, [this] { FollowSize(); });
    chances_ = new WoodenKey(this, services_, "button_chances", " Probabilidades ");
    chances_->setObjectName("Pic_Probabilidades");
    chances_->Explain(true);
    chances_->Pressed = [this] {
        if (ChancesPressed) ChancesPressed();
    };
    largeKeys_ = std::make_unique<LargeKeys>(this, services_, [this](RecorderKey key) {
        if (strip_->Pressed) strip_->Pressed(key);
    });
    strip_->installEventFilter(this);
    for (auto* key : findChildren<WoodenKey*>()) key->installEventFilter(this);
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState now) {
        const bool lost = dialogClosed_.isValid() && dialogClosed_.elapsed() < lostFocusMilliseconds;
        wasLeft_ = now != Qt::ApplicationActive && !lost;
    });
}

Mesa::~Mesa() = default;

// ------------------------------------------------------------------------------------- layout

// Both edges are rounded one by one, so that boxes that touch in the layout touch on every screen.
QRect Mesa::LogicalRect(const Box& box) const {
    const Layout& layout = services_.layout;
    const double ratio = services_.devicePixelRatio;
    const auto place = [&](double start, double pixels) {
        return static_cast<int>(std::lround((start + pixels * layout.Unit) / ratio));
    };
    const QPoint topLeft(place(layout.DeviceLeft, box.x), place(layout.DeviceTop, box.y));
    const QPoint bottomRight(place(layout.DeviceLeft, box.x + box.width),
                             place(layout.DeviceTop, box.y + box.height));
    return {topLeft, QSize(bottomRight.x() - topLeft.x(), bottomRight.y() - topLeft.y())};
}

void Mesa::PlaceControls() {
    const Layout& layout = services_.layout;
    auto* panel = findChild<QWidget*>("Pic_Botones");
    const QRect area = LogicalRect(layout.Buttons);
    panel->setGeometry(area);
    for (int index = 0; index < MenuButtonCount; ++index) {
        buttons_->Button(index).setGeometry(
            LogicalRect(layout.Button[index]).translated(-area.topLeft()));
    }
    strip_->setGeometry(LogicalRect(layout.Recorder));
    log_->setGeometry(LogicalRect(layout.LogPaper));
    for (int index = 0; index < RecorderKeyCount; ++index) {
        WoodenKey& key = largeKeys_->Key(static_cast<RecorderKey>(index));
        key.setGeometry(LogicalRect(layout.LargeKey[index]));
    }
    chances_->setGeometry(LogicalRect(layout.Chances));
}

void Mesa::UseScreen(QSize devicePixels, double devicePixelRatio) {
    services_.devicePixelRatio = devicePixelRatio;
    services_.layout = LayoutFor(devicePixels.width(), devicePixels.height());
    artwork_.ForgetPixmaps();
    cursors_.SetScale(services_.layout.Unit, devicePixelRatio);
    QToolTip::setFont(TextFont(services_.ToLogical(13)));
}

void Mesa::ChooseScreen(const QScreen& screen) {
    if (isVisible()) return;  // a second start of the program has shown it meanwhile
    setGeometry(screen.geometry());
    winId();  // creates the native window, which a window that opens over this one belongs to
    const double ratio = screen.devicePixelRatio();
    const QSize devicePixels = (QSizeF(screen.size()) * ratio).toSize();
    UseScreen(devicePixels, ratio);
    // Painted by another thread while the title opens; resizeEvent takes it.
    scene_->TheBackground().Begin(services_.layout, devicePixels);
}

// Comes when the window is first shown, and when it gets another size or scale.
void Mesa::resizeEvent(QResizeEvent*) {
    LeaveBoard();
    if (!resting_.isActive()) FollowSize();
}

// While the player pulls at the window's edge, its size changes faster than the background can be
// painted. After each painting the program rests as long as that took, and so has time for all else.
void Mesa::FollowSize() {
    QElapsedTimer clock;
    clock.start();
    const double ratio = devicePixelRatioF();
    const QSize devicePixels = (QSizeF(size()) * ratio).toSize();
    if (scene_->PictureSize() == devicePixels && services_.devicePixelRatio == ratio) return;
    UseScreen(devicePixels, ratio);
    scene_->SetScreen(services_.layout, devicePixels);
    PlaceControls();
    RefreshCursor();
    if (LaidOut) LaidOut();
    resting_.start(static_cast<int>(clock.elapsed()));
}

void Mesa::ShowRecorderKey(RecorderKey key, bool pressed) {
    strip_->ShowPressed(key, pressed);
    largeKeys_->Key(key).ShowPressed(pressed);
}

Point Mesa::LayoutPoint(QPointF position) const {
    const Layout& layout = services_.layout;
    const QPointF device = position * services_.devicePixelRatio;
    const auto pixel = [&](double value) {
        return ToShort(std::lround(std::clamp(value / layout.Unit, -30000.0, 30000.0)));
    };
    return {pixel(device.x() - layout.DeviceLeft), pixel(device.y() - layout.DeviceTop)};
}

void Mesa::SwitchFullScreen() {
    setMinimumSize(0, 0);
    setWindowState(windowState() ^ Qt::WindowFullScreen);
    if (isFullScreen()) return;
    const double ratio = devicePixelRatioF();
    setMinimumSize(qCeil(smallestWindow.width() / ratio), qCeil(smallestWindow.height() / ratio));
    if (std::exchange(wasWindow_, true)) return;
    const QRect room = screen()->availableGeometry();
    QRect place(QPoint(), (room.size() * firstShareOfScreen).expandedTo(minimumSize()));
    place.moveCenter(room.center());
    setGeometry(place);
    // On Wayland Qt (6.4) then gives the window the size again that it had before it filled the screen:
    // the screen's.
    QTimer::singleShot(restoringMilliseconds, this, [this, place] {
        if (!isFullScreen() && size() == screen()->size()) setGeometry(place);
    });
}

void Mesa::ComeToFront() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
}

// ------------------------------------------------------------------------------------ painting

// A window that has just been made larger shows bare wood beside the board.
void Mesa::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const double ratio = services_.devicePixelRatio;
    painter.scale(1 / ratio, 1 / ratio);
    const QPixmap& board = scene_->Picture();
    for (const QRect& part : event->region()) {
        const QRect device =
            QRectF(QPointF(part.topLeft()) * ratio, QSizeF(part.size()) * ratio).toAlignedRect();
        if (!board.rect().contains(device)) painter.fillRect(device, palette::DarkWood);
        painter.drawPixmap(device.topLeft(), board, device);
    }
}

// --------------------------------------------------------------------------------------- input

// WindowBlocked comes when a dialog opens over the board, WindowUnblocked when it goes. A release of the
// mouse after WindowBlocked, WindowDeactivate or Hide may go to another window, or to none.
bool Mesa::event(QEvent* event) {
    const QEvent::Type type = event->type();
    if (type == QEvent::WindowBlocked || type == QEvent::WindowDeactivate || type == QEvent::Hide)
        LeaveBoard();
    if (type == QEvent::WindowActivate && BoardBack) BoardBack();
    if (type == QEvent::WindowUnblocked) dialogClosed_.start();
    if (type == QEvent::WindowBlocked || type == QEvent::WindowUnblocked) RefreshCursor();
    return QWidget::event(event);
}

// The menu and the recorder let this window explain their keys.
bool Mesa::eventFilter(QObject* control, QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::eventFilter(control, event);
    ShowExplanation(*static_cast<QWidget*>(control), static_cast<QHelpEvent*>(event)->globalPos());
    return true;
}

// Below the image of the hand: Qt leaves room for a cursor of the usual size only, and the hand would
// hide the beginning of the text.
void Mesa::ShowExplanation(QWidget& control, QPoint at) {
    const QCursor hand = cursors_.Hand();
    const int height = qCeil(hand.pixmap().deviceIndependentSize().height()) - hand.hotSpot().y();
    QToolTip::showText(at + QPoint(0, height), control.toolTip(), &control);
}

bool Mesa::IsOnBoard(QPointF position) const {
    const QPoint at = position.toPoint();
    return rect().contains(at) && childAt(at) == nullptr;
}

void Mesa::LosePress() {
    if (BoardPressLost) BoardPressLost();
}

void Mesa::LeaveBoard() {
    if (BoardLeft) BoardLeft();
}

bool Mesa::IsLeft() const {
    return QGuiApplication::applicationState() != Qt::ApplicationActive && (wasLeft_ || isMinimized());
}

void Mesa::mousePressEvent(QMouseEvent* event) {
    const bool isAlone = event->buttons() == event->button();
    if (!isAlone || !IsOnBoard(event->position())) {
        LosePress();
    } else if (BoardPressed) {
        BoardPressed(LayoutPoint(event->position()), event->button());
    }
}

void Mesa::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() == Qt::NoButton) LosePress();  // its release came to nobody here
    if (BoardMoved) BoardMoved(LayoutPoint(event->position()));
    RefreshCursor();
}

void Mesa::mouseReleaseEvent(QMouseEvent* event) {
    if (BoardReleased) BoardReleased(LayoutPoint(event->position()), IsOnBoard(event->position()));
    RefreshCursor();
}

void Mesa::keyPressEvent(QKeyEvent* event) {
    if (IsKeyStroke(*event) && KeyPressed) KeyPressed(*event);
}

// The program asks the player first, and ends by quitting rather than by closing the window.
void Mesa::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (CloseWanted) CloseWanted();
}

void Mesa::SetScreenCursor(ScreenCursor cursor) {
    if (WaitChanged) WaitChanged();
    isPreparing_ = cursor == ScreenCursor::Hourglass;
    RefreshCursor();
}

bool Mesa::IsBlocked() {
    return QApplication::activeModalWidget() != nullptr;
}

// Over everything, because the menu, the recorder and the log have cursors of their own. A window that
// waits for an answer shows its own cursors meanwhile.
void Mesa::RefreshHourglass() {
    const bool isWanted = isPreparing_ && !IsBlocked();
    const bool isShown = QGuiApplication::overrideCursor() != nullptr;
    if (isWanted && !isShown) QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    if (!isWanted && isShown) QGuiApplication::restoreOverrideCursor();
}

// Nothing can be done on the board while a window waits for an answer, and the cursor says so. The
// board's own cursor comes last: while the mouse is not over the window, Qt shows over all of it the
// cursor that was set last, a control's too.
void Mesa::RefreshCursor() {
    const Point at = LayoutPoint(mapFromGlobal(QPointF(QCursor::pos())));
    RefreshHourglass();
    buttons_->Refresh();
    strip_->RefreshCursor();
    largeKeys_->Refresh(strip_->IsLive, scene_->View().tape >= 0);
    chances_->ShowLive(!IsBlocked());
    ShowCursor(*this, CursorAt && !IsBlocked() ? CursorAt(at) : QCursor(Qt::ArrowCursor));
}

}  // namespace zorva
