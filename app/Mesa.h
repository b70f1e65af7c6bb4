#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>

#include "app/Artwork.h"
#include "app/BoardScene.h"
#include "app/Cursors.h"
#include "app/Pacer.h"
#include "app/Services.h"
#include "core/Outside.h"

class QScreen;

namespace zorva {

class LargeKeys;
class MenuButtons;
class MoveLog;
class RecorderStrip;
class WoodenKey;
enum class RecorderKey;

/// The board window. It shows the board, the menu, the recorder and the log over the whole screen
/// and hands on what the mouse and the keyboard do; it knows no rules.
///
/// Three kinds of pixels meet here. Layout pixels are those of `Layout`, in which everything is
/// measured; device pixels are the screen's; Qt counts in logical pixels, of which each is
/// `devicePixelRatio` device pixels wide.
class Mesa : public QWidget {
    // Gives the class a name of its own in Qt's meta-object. BoardAccessibility looks for that name
    // when Qt asks for the interface for screen readers.
    Q_OBJECT

public:
    Mesa(const GameState& state, const Settings& settings);
    ~Mesa() override;

    /// Lays the window out for that screen before it is shown: the title opens first, in the middle of
    /// it. Does nothing once the window is shown.
    void ChooseScreen(const QScreen& screen);

    /// Leaves or enters full screen. The first time the window takes three quarters of the screen's
    /// width and height, later its last place; it is never smaller than 640x480 device pixels.
    void SwitchFullScreen();

    /// Shows the window, minimised or not, in front of all others, as it was before.
    void ComeToFront();

    const GameState& State() const { return state_; }
    const Settings& CurrentSettings() const { return settings_; }

    BoardScene& Scene() { return *scene_; }
    MoveLog& Log() { return *log_; }
    MenuButtons& Buttons() { return *buttons_; }
    RecorderStrip& Strip() { return *strip_; }
    LargeKeys& RecorderKeys() { return *largeKeys_; }
    /// Draws a key of the recorder pressed or at rest, in the strip and among the large ones.
    void ShowRecorderKey(RecorderKey key, bool pressed);
    Services& Shared() { return services_; }
    Pacer& Waits() { return pacer_; }

    // The program sets the following functions when it builds the window.

    /// Shows a message and waits for its answer.
    std::function<MessageAnswer(const QString& title, const QString& text, Short lineCount,
                                MessageButtons buttons)>
        Ask;
    /// A menu button was pressed (MenuButtons::Index).
    std::function<void(int button)> ButtonPressed;
    // The mouse on the board, at a point in layout pixels.
    /// A button was pressed on the board itself, not on a control, while no other was down.
    std::function<void(Point at, Qt::MouseButton button)> BoardPressed;
    std::function<void(Point at)> BoardMoved;
    /// A button was released: on the board itself, or over a control or outside the window. Its press
    /// may have been on a control.
    std::function<void(Point at, bool onBoard)> BoardReleased;
    /// A press that may be under way is over without a release: a second button was pressed, or the
    /// release was lost. Also called when no press is under way.
    std::function<void()> BoardPressLost;
    /// Another window came in between, or the board was hidden or got another size: what mouse and
    /// keyboard were doing on the board is broken off.
    std::function<void()> BoardLeft;
    /// The board has got the keyboard, again or for the first time.
    std::function<void()> BoardBack;
    /// A key was pressed on the board. Never a modifier alone or an automatic repeat.
    std::function<void(const QKeyEvent& key)> KeyPressed;
    /// The key of the window of chances was pressed.
    std::function<void()> ChancesPressed;
    /// The board has got another layout.
    std::function<void()> LaidOut;
    /// The window manager wants the window closed. It stays open unless the program ends.
    std::function<void()> CloseWanted;
    /// The cursor for a point of the board, in layout pixels, as the game stands.
    std::function<QCursor(Point at)> CursorAt;

    /// The game has set its cursor: a wait for the player begins or ends.
    std::function<void()> WaitChanged;

    /// Shows the hourglass over the whole window while the game prepares, else the other cursors.
    void SetScreenCursor(ScreenCursor cursor);
    /// Shows cursors and keys as the game and the recorder stand. Must be called when it changes what a
    /// click does.
    void RefreshCursor();
    /// Whether another window waits for an answer, so that a click on this one does nothing.
    static bool IsBlocked();

    /// Whether the player has hidden the board or works with another program.
    bool IsLeft() const;

    /// The point in layout pixels under a position of the window in logical pixels. Far outside the
    /// window it is cut to what 16 bits hold.
    Point LayoutPoint(QPointF position) const;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* control, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    // The window looks the same with and without the keyboard; Qt would paint all of it again.
    void focusInEvent(QFocusEvent*) override {}
    void focusOutEvent(QFocusEvent*) override {}
    bool focusNextPrevChild(bool) override { return false; }  // Tab is a key of the board

private:
    // Sets layout and scale for a window of that size. Pixmaps of the old scale are forgotten.
    void UseScreen(QSize devicePixels, double devicePixelRatio);
    // Lays the window out for the size that it has.
    void FollowSize();
    void PlaceControls();
    // Whether that position, in logical pixels, is in the window and not on one of its controls.
    bool IsOnBoard(QPointF position) const;
    void LosePress();
    void LeaveBoard();
    QRect LogicalRect(const Box& box) const;
    void ShowExplanation(QWidget& control, QPoint at);
    void RefreshHourglass();

    const GameState& state_;
    const Settings& settings_;
    bool isPreparing_ = false;    // the hourglass is wanted
    bool wasWindow_ = false;      // before the window filled the screen
    bool wasLeft_ = false;        // when the windows of the program stopped being active
    QTimer resting_;              // runs for a while after the window has followed a new size
    QElapsedTimer dialogClosed_;  // runs since the last dialog over the board has closed
    Artwork artwork_;
    Cursors cursors_{artwork_};
    Pacer pacer_;
    Services services_;
    std::unique_ptr<BoardScene> scene_;
    std::unique_ptr<MenuButtons> buttons_;
    RecorderStrip* strip_;  // Qt deletes it with the window, as it does the log
    MoveLog* log_;
    WoodenKey* chances_;
    std::unique_ptr<LargeKeys> largeKeys_;
};

}  // namespace zorva
