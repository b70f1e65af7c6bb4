#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <functional>
#include <optional>

#include "dialogs/BoardDialog.h"
#include "dialogs/TitleArtwork.h"
#include "dialogs/TitleScroll.h"

namespace zorva {

/// The title at the start. It scrolls through its window twice, in six seconds, and closes; any key or
/// click ends it. Other events are handled between its steps.
class careta : public BoardDialog {
public:
    /// `openBoard` is called once, when the title is on the screen. It may take some tenths of a second:
    /// the title stands still meanwhile.
    careta(QWidget* parent, const Services& services, std::function<void()> openBoard);

    const TitleScroll& Scroll() const { return scroll_; }

protected:
    void DrawGround(QPainter& painter) override;
    void KeyPressed(QKeyEvent* event) override;
    void Leave() override;
    void mousePressEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool) override { return false; }

private:
    void MakeSteps();
    void Begin();
    void OpenAgain();
    void Stop();
    bool EndsTitle(QObject* watched, QEvent* event);
    void DrawTitle();
    const QPixmap& Ground();

    std::function<void()> openBoard_;
    std::optional<TitleArtwork> logo_;  // drawn when the board is open
    TitleScroll scroll_;
    StepClock steps_;
    QElapsedTimer clock_;  // runs since the board is open
    QTimer timer_;
    QWidget* area_;  // Pic_Careta
    QPixmap ground_;
    bool wasPainted_ = false;
};

/// Shows the title, calls `openBoard` when it is on the screen, and returns when it has gone.
void ShowSplash(QWidget* parent, const Services& services, const std::function<void()>& openBoard);

}  // namespace zorva
