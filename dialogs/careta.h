#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <functional>
#include <optional>

#include "dialogs/BoardDialog.h"
#include "dialogs/TitleArtwork.h"
#include "dialogs/TitleScroll.h"

namespace zorva {

/// What goes on behind the title.
struct WorkBehind {
    std::function<void()> begin;  ///< called once when it is on the screen, at the latest when it goes
    std::function<bool()>
        isDone;  ///< asked again and again; until then the title neither scrolls nor goes
};

/// The title at the start. It scrolls through its window twice and goes; any key or click ends it.
/// The program's other work goes on meanwhile, between its steps.
class careta : public BoardDialog {
public:
    careta(QWidget* parent, const Services& services, WorkBehind work = {});

    /// Whether it was on the screen, and the work behind it was begun.
    bool HasAppeared() const { return clock_.isValid(); }
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
    void Stop();
    bool IsWorkDone() const;
    bool EndsTitle(QObject* watched, QEvent* event);
    void DrawTitle();
    const QPixmap& Ground();

    WorkBehind work_;
    std::optional<TitleArtwork> logo_;  // drawn when the work is done
    TitleScroll scroll_;
    StepClock steps_;
    QElapsedTimer clock_;
    QTimer timer_;
    QWidget* area_;  // Pic_Careta
    QPixmap ground_;
    bool wasPainted_ = false;
    bool wasActivated_ = false;
};

/// Shows the title and returns when it has gone.
void ShowSplash(QWidget* parent, const Services& services, const WorkBehind& work);

}  // namespace zorva
