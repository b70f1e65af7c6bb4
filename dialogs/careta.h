#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <functional>
#include <optional>

#include "dialogs/BoardDialog.h"
#include "dialogs/TitleArtwork.h"
#include "dialogs/TitleScroll.h"

namespace zorva {

/// The title at the start. It scrolls through its window twice and goes; any key or click ends it.
/// The program's other work goes on meanwhile, between its steps.
class careta : public BoardDialog {
public:
    careta(QWidget* parent, const Services& services);

    /// Called once, when the window is on the screen.
    std::function<void()> Appeared;
    /// Whether the title may go when it is over; asked again and again.
    std::function<bool()> MayGo;

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
    void Stop();
    bool IsFreeToGo() const;
    void Go();
    bool EndsTitle(QObject* watched, QEvent* event);
    void DrawTitle();
    const QPixmap& Ground();

    std::optional<TitleArtwork> logo_;  // drawn when it comes into sight
    TitleScroll scroll_;
    StepClock steps_;
    QElapsedTimer clock_;
    QTimer timer_;
    QWidget* area_;  // Pic_Careta
    QPixmap ground_;
    bool wasPainted_ = false;
    bool wasActivated_ = false;
};

/// What goes on behind the title.
struct WorkBehind {
    std::function<void()> begin;   ///< called once while it scrolls, at the latest when it has gone
    std::function<bool()> isDone;  ///< a title that is over stays until then
};

/// Shows the title and returns when it has gone.
void ShowSplash(QWidget* parent, const Services& services, const WorkBehind& work);

}  // namespace zorva
