#pragma once

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

class MenuButtons;
class MoveLog;
class RecorderStrip;

/// The board window. It shows the board, the menu, the recorder and the log over the whole screen
/// and hands on what the mouse and the keyboard do; it knows no rules.
class Mesa : public QWidget {
    // Screen readers' interface is found by the class's name.
    Q_OBJECT

public:
    Mesa(const GameState& state, const Settings& settings);
    ~Mesa() override;

    /// Lays the window out for that screen before it is shown: the title opens first, in the middle of
    /// it. Does nothing once the window is shown.
    void ChooseScreen(const QScreen& screen);

    const GameState& State() const { return state_; }
    const Settings& CurrentSettings() const { return settings_; }

    /// The latest news for those who hear the board.
    const QString& News() const { return news_; }
    void SetNews(const QString& news) { news_ = news; }

    BoardScene& Scene() { return *scene_; }
    MoveLog& Log() { return *log_; }
    MenuButtons& Buttons() { return *buttons_; }
    RecorderStrip& Strip() { return *strip_; }
    Services& Shared() { return services_; }
    Pacer& Waits() { return pacer_; }

    /// How a message is shown; set by whoever builds the window.
    std::function<MessageAnswer(const QString& title, const QString& text, Short lineCount,
                                MessageButtons buttons)>
        Ask;
    /// A menu button was pressed (MenuButtons::Index).
    std::function<void(int button)> ButtonPressed;
    // The mouse on the board, at a point of the layout.
    std::function<void(Point at, Qt::MouseButton button)> BoardPressed;
    std::function<void(Point at)> BoardMoved;
    std::function<void(Point at)> BoardReleased;
    /// A key was pressed; modifiers alone and automatic repeats are none.
    std::function<void(const QKeyEvent& key)> KeyPressed;
    /// The window manager wants the window closed.
    std::function<void()> CloseWanted;
    /// The cursor the board shows at a point of the layout, by its state.
    std::function<QCursor(Point at)> CursorAt;

    /// The screen cursor was set by the game: a wait begins or ends.
    std::function<void()> WaitChanged;

    /// The cursor of the game: an hourglass while it prepares, else that of the board.
    void SetScreenCursor(ScreenCursor cursor);
    /// Shows the cursor that belongs to where the mouse is now.
    void RefreshCursor();

    /// The point of the layout under a position of the window.
    Point LayoutPoint(QPointF position) const;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    // Nothing looks different for them, and Qt would paint the whole window anew.
    void focusInEvent(QFocusEvent*) override {}
    void focusOutEvent(QFocusEvent*) override {}
    bool focusNextPrevChild(bool) override { return false; }  // Tab is a key of the board

private:
    void UseScreen(QSize devicePixels, double devicePixelRatio);
    void PlaceControls();
    QRect LogicalRect(const Box& box) const;

    const GameState& state_;
    const Settings& settings_;
    QString news_;
    Artwork artwork_;
    Cursors cursors_{artwork_};
    Pacer pacer_;
    Services services_;
    std::unique_ptr<BoardScene> scene_;
    std::unique_ptr<MenuButtons> buttons_;
    RecorderStrip* strip_;  // owned by the window, as the log
    MoveLog* log_;
};

}  // namespace zorva
