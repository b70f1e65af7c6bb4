#include "app/MoveLog.h"

#include <QPainter>
#include <QWheelEvent>
#include <algorithm>

#include "app/Fonts.h"
#include "app/Palette.h"

namespace zorva {
namespace {

constexpr double linePitch = 16;  // pixels of the layout
constexpr double typeSize = 12;
constexpr double padding = 6;
constexpr double paperWidth = 150;  // that all lines fit on; on a narrower one the letters are smaller

}  // namespace

MoveLog::MoveLog(QWidget* parent, const Services& services) : QWidget(parent), services_(services) {
    setObjectName("Lis_Grabadora");
    setAccessibleName("Registro de jugadas");
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::ArrowCursor);
}

double MoveLog::LineHeight() const {
    return services_.ToLogical(linePitch);
}

int MoveLog::VisibleLines() const {
    return std::max(1, static_cast<int>((height() - services_.ToLogical(2 * padding)) / LineHeight()));
}

void MoveLog::ScrollTo(int line) {
    const int visible = VisibleLines();
    if (line < top_) top_ = line;
    if (line >= top_ + visible) top_ = line - visible + 1;
    top_ = std::clamp(top_, 0, std::max(0, Count() - visible));
    update();
}

void MoveLog::Begin(const QString& heading) {
    lines_ = {heading};
    selected_ = -1;
    ScrollTo(0);
}

void MoveLog::Add(const QString& line) {
    lines_.append(line);
    setAccessibleDescription(line);
    selected_ = -1;
    ScrollTo(Count() - 1);
}

void MoveLog::Select(int line) {
    selected_ = line < Count() ? line : -1;
    if (selected_ >= 0) ScrollTo(selected_);
    update();
}

void MoveLog::CutFrom(int line) {
    lines_.erase(lines_.begin() + std::clamp(line, 0, Count()), lines_.end());
    if (selected_ >= Count()) selected_ = -1;
    ScrollTo(std::max(0, Count() - 1));
}

// A click here is none on the board below.
void MoveLog::mousePressEvent(QMouseEvent* event) {
    event->accept();
}

void MoveLog::resizeEvent(QResizeEvent*) {
    ScrollTo(selected_ >= 0 ? selected_ : std::max(0, Count() - 1));
}

void MoveLog::wheelEvent(QWheelEvent* event) {
    const int lines = event->angleDelta().y() > 0 ? -3 : 3;
    top_ = std::clamp(top_ + lines, 0, std::max(0, Count() - VisibleLines()));
    update();
}

// Ruled paper: every other line lies on a tint, which moves with the lines. The upper edge is in the
// shadow of the slit that the paper comes out of.
void MoveLog::PaintPaper(QPainter& painter) const {
    const double unit = services_.ToLogical(1);
    painter.fillRect(rect(), palette::Paper);
    const double pitch = LineHeight();
    const double top = padding * unit;
    for (int row = top_ % 2; top + row * pitch < height(); row += 2) {
        painter.fillRect(QRectF(0, top + row * pitch, width(), pitch), palette::RuledPaper);
    }
    QLinearGradient bend(0, 0, width(), 0);
    bend.setColorAt(0, QColor(70, 40, 10, 40));
    bend.setColorAt(0.06, QColor(70, 40, 10, 0));
    bend.setColorAt(0.9, QColor(70, 40, 10, 0));
    bend.setColorAt(1, QColor(70, 40, 10, 60));
    painter.fillRect(rect(), bend);
    QLinearGradient slit(0, 0, 0, 9 * unit);
    slit.setColorAt(0, QColor(20, 8, 2, 170));
    slit.setColorAt(0.4, QColor(20, 8, 2, 50));
    slit.setColorAt(1, QColor(20, 8, 2, 0));
    painter.fillRect(QRectF(0, 0, width(), 9 * unit), slit);
}

void MoveLog::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PaintPaper(painter);
    const double unit = services_.ToLogical(1);
    const double pitch = LineHeight();
    const double left = padding * unit;
    const double size = typeSize * std::min(unit, width() / paperWidth);
    const int last = std::min(Count(), top_ + VisibleLines());
    for (int line = top_; line < last; ++line) {
        const QRectF row(left, left + (line - top_) * pitch, width() - 2 * left, pitch);
        if (line == selected_) {
            painter.fillRect(row.adjusted(-left, 0, left, 0), palette::Brass);
            painter.fillRect(QRectF(0, row.y(), 3 * unit, pitch), palette::Mark);
        }
        painter.setFont(line == 0 ? TextFont(size, QFont::Bold) : ColumnFont(size));
        painter.setPen(palette::Ink);
        painter.drawText(row, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, lines_[line]);
    }
}

}  // namespace zorva
