#pragma once

#include <QWidget>
#include <array>
#include <functional>

#include "app/Services.h"
#include "dialogs/GameReport.h"
#include "dialogs/GameWords.h"

namespace zorva {

class ChancePlot;
class MomentButton;

/// The page about a whole game: the plot of the chances, luck and costs of each colour, and the moments
/// that counted most. Screen readers find all of it but the plot as the page's description.
class GamePage : public QWidget {
public:
    /// The services must outlive the page.
    GamePage(QWidget* window, const Services& services);
    ~GamePage() override;

    /// Called when the player has chosen a move, in the plot or by its sentence: 0 is the start of the
    /// game.
    std::function<void(int record)> GoTo;

    void Show(const GameReport& report);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    using Moments = std::array<MomentButton*, MomentsTold>;

    Moments AddMoments(const char* name, Short left, Short width);
    QString PageText() const;
    Short RowsTop() const;
    void DrawSums(QPainter& painter, Colour colour, double top) const;
    void DrawLuck(QPainter& painter, const engine::Estimate& luck, const QRectF& row) const;
    void DrawLists(QPainter& painter) const;

    const Services& services_;
    GameReport report_;
    ChancePlot* plot_;  // owned by the page, as the moments
    Moments luckiest_, costliest_;
};

}  // namespace zorva
