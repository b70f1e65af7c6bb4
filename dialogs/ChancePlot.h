#pragma once

#include <QPixmap>
#include <QWidget>
#include <functional>

#include "app/Services.h"
#include "dialogs/GameReport.h"

namespace zorva {

/// The chances of all colours over the moves of a game: a field as high as 100 games, divided into one
/// band for each colour. What is not analysed yet is left open. Above it stand the chances after one
/// move: the one under the mouse or the keyboard's hairline, else the one that the board shows.
///
/// Left and Right move the hairline by a move, Page Up and Page Down by ten, Home and End to either end.
/// Each such key says the chances. A click and Enter choose the move.
class ChancePlot : public QWidget {
public:
    /// The services and the report must outlive the plot.
    ChancePlot(QWidget* page, const Services& services, const GameReport& report);

    /// Called with the move that was chosen: 0 for the start of the game.
    std::function<void(int record)> Chosen;

    /// The report has changed.
    void ShowReport();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// The move whose chances the page shows: the one under the hairline, else the one on the board.
    int RecordTold() const;
    void MarkRecord(int record);
    int RecordAt(QPointF position) const;
    QRectF Field() const;
    double XOf(int record) const;
    QPixmap BandsPixmap() const;
    void DrawBands(QPainter& painter) const;
    void DrawMark(QPainter& painter, Colour colour, const std::vector<QPointF>& lower,
                  const std::vector<QPointF>& upper) const;
    void DrawAxes(QPainter& painter) const;
    void DrawTold(QPainter& painter) const;
    void DrawHairlines(QPainter& painter) const;

    const Services& services_;
    const GameReport& report_;
    QPixmap bands_;    // null when it must be painted again
    int marked_ = -1;  // the move under the hairline
};

}  // namespace zorva
