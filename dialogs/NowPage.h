#pragma once

#include <QWidget>
#include <functional>

#include "app/Services.h"
#include "dialogs/PositionReport.h"

namespace zorva {

/// The page about one position: the chances of all colours as bars and, when a person chooses, what each
/// move is worth. Up and Down go through the moves. Screen readers find the whole page as its
/// description.
class NowPage : public QWidget {
public:
    /// The services must outlive the page.
    NowPage(QWidget* window, const Services& services);

    /// Called with the piece of the move that is pointed at, by mouse or keyboard; 0 when there is none.
    std::function<void(Short piece)> Pointed;

    void Show(const PositionReport& report);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void PointAt(int move);
    QRectF BarRow(int row) const;
    QRectF MoveRow(int row) const;
    void DrawBar(QPainter& painter, Colour colour, const QRectF& row) const;
    void DrawMove(QPainter& painter, int move) const;
    QString MoveText(const PositionReport::Move& move) const;
    QString WorthText(const PositionReport::Move& move) const;
    QString SourceText() const;
    QString PageText() const;

    const Services& services_;
    PositionReport report_;
    int pointed_ = -1;  // the move pointed at
};

}  // namespace zorva
