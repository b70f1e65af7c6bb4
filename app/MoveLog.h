#pragma once

#include <QStringList>
#include <QWidget>

#include "app/Services.h"

namespace zorva {

/// Lis_Grabadora: the running record of the game, one line a move below a heading, and the tape of
/// the recorder. It takes no focus and no selection by mouse; the wheel scrolls it.
class MoveLog : public QWidget {
public:
    MoveLog(QWidget* parent, const Services& services);

    /// Empties the log and writes its heading, which is line 0.
    void Begin(const QString& heading);
    /// Appends a line and makes it visible; nothing stays selected.
    void Add(const QString& line);
    /// Selects a line and makes it visible; -1 selects none.
    void Select(int line);
    /// Forgets all lines from that one on.
    void CutFrom(int line);

    int Count() const { return static_cast<int>(lines_.size()); }
    const QStringList& Lines() const { return lines_; }
    int Selected() const { return selected_; }

    /// The height of a line in pixels of Qt.
    double LineHeight() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    int VisibleLines() const;
    void PaintPaper(QPainter& painter) const;
    void ScrollTo(int line);

    const Services& services_;
    QStringList lines_;
    int top_ = 0;
    int selected_ = -1;
};

}  // namespace zorva
