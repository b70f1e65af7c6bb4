#pragma once

#include <QListView>
#include <QPainterPath>
#include <QStringListModel>
#include <functional>
#include <vector>

#include "app/Services.h"
#include "core/Types.h"

namespace zorva {

/// Lis_Grabadora: the list of all moves, one row a move below a heading, which is row 0, so that move n
/// is row n. While the recorder is on, the row of the move at which it stands is selected.
///
/// It looks like paper that comes out of a slit, ruled as far as it is printed and torn off below, as
/// long as there is room. The wheel and the touchpad scroll it; it takes no
/// focus and no click, and no click on it reaches the board behind it. Screen readers find a list with
/// an item for each row.
class MoveLog : public QListView {
public:
    /// The services must outlive the log.
    MoveLog(QWidget* parent, const Services& services);

    /// The sentence by which screen readers know a row. Called only when one of them asks; without this
    /// function, or for an empty sentence, they read the row as it is written.
    std::function<QString(int row)> RowText;

    /// Empties the log and writes its heading.
    void Begin(const QString& heading);
    /// Appends a line, with a thin mark in the colour of whose piece moved; 0 leaves it out. The log
    /// shows it at its next layout, which events bring; no row stays selected.
    void Add(const QString& line, Colour mover = 0);
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
    class Lines : public QStringListModel {
    public:
        explicit Lines(const MoveLog& log) : log_(log) {}
        QVariant data(const QModelIndex& index, int role) const override;

    private:
        const MoveLog& log_;
    };

    int PrintedTo() const;
    QPainterPath Paper() const;
    void ShowPaper();
    void PaintPaper(QPainter& painter) const;

    const Services& services_;
    Lines lines_;
    std::vector<Colour> movers_{0};  // by row
};

}  // namespace zorva
