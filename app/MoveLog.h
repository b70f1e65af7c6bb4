#pragma once

#include <QListView>
#include <QStringListModel>

#include "app/Services.h"

namespace zorva {

/// Lis_Grabadora: the list of all moves, one row a move below a heading, which is row 0, so that move n
/// is row n. While the recorder is on, the row of the move at which it stands is selected.
///
/// It looks like ruled paper that comes out of a slit. The wheel and the touchpad scroll it; it takes no
/// focus and no click, and no click on it reaches the board behind it. Screen readers find the rows.
class MoveLog : public QListView {
public:
    /// The services must outlive the log.
    MoveLog(QWidget* parent, const Services& services);

    /// Empties the log and writes its heading.
    void Begin(const QString& heading);
    /// Appends a line. The log shows it at its next layout, which events bring; no row stays selected.
    void Add(const QString& line);
    /// Selects a row and scrolls to it. When there is no such row, it selects none and shows the newest.
    void Select(int row);
    /// Removes that row and all below it; `row` is at least 0.
    void CutFrom(int row);

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void updateGeometries() override;
    // Taken here: Qt would make a row the current one, scroll while the mouse is dragged, and hand moves
    // on to the board.
    void mousePressEvent(QMouseEvent*) override {}
    void mouseMoveEvent(QMouseEvent*) override {}

private:
    void PaintPaper();

    const Services& services_;
    QStringListModel lines_;
};

}  // namespace zorva
