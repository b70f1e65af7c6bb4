#include "app/MoveLog.h"

#include <QPainter>
#include <QWheelEvent>
#include <algorithm>

#include "app/Palette.h"
#include "app/Typeface.h"

namespace zorva {
namespace {

constexpr double linePitch = 16;  // pixels of the layout
constexpr double typeSize = 12;
constexpr double padding = 6;

}  // namespace

MoveLog::MoveLog(QWidget* parent, const Services& services) : QWidget(parent), services_(services) {
    setObjectName("Lis_Grabadora");
    setAccessibleName("Registro de jugadas");
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::ArrowCursor);
}

double MoveLog::LineHeight() const {
    return services_.ToToolkit(linePitch);
}

int MoveLog::VisibleLines() const {
    return std::max(1, static_cast<int>((height() - services_.ToToolkit(2 * padding)) / LineHeight()));
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

void MoveLog::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double unit = services_.ToToolkit(1);
    const QRectF paper = QRectF(rect()).adjusted(unit / 2, unit / 2, -unit / 2, -unit / 2);
    painter.setPen(QPen(palette::DarkWood, unit));
    painter.setBrush(palette::Paper);
    painter.drawRoundedRect(paper, 4 * unit, 4 * unit);
    const double pitch = LineHeight();
    const double left = padding * unit;
    const int last = std::min(Count(), top_ + VisibleLines());
    for (int line = top_; line < last; ++line) {
        const QRectF row(left, left + (line - top_) * pitch, width() - 2 * left, pitch);
        if (line == selected_) painter.fillRect(row.adjusted(-2 * unit, 0, 2 * unit, 0), palette::Brass);
        painter.setFont(line == 0 ? TextFont(typeSize * unit, QFont::Bold)
                                  : ColumnFont(typeSize * unit));
        painter.setPen(palette::Ink);
        painter.drawText(row, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, lines_[line]);
    }
}

}  // namespace zorva
