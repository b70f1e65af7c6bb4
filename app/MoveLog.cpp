#include "app/MoveLog.h"

#include <QAbstractItemDelegate>
#include <QEvent>
#include <QPainter>
#include <QPixmapCache>
#include <QScrollBar>
#include <algorithm>
#include <iterator>

#include "app/Fonts.h"
#include "app/Palette.h"

namespace zorva {
namespace {

constexpr int rowsInTheLamp = 3;  // from the lowest up

// In layout pixels.
constexpr double linePitch = 16;
constexpr double fontSize = 12.5;
constexpr double padding = 6;       // above and below the lines
constexpr double indent = 9;        // beside them
constexpr double paperWidth = 150;  // holds every line; on narrower paper the font is smaller
constexpr double markWidth = 3;     // of the edge of the selected line
constexpr double moverWidth = 2.6;  // of the mark in the mover's colour, beside it
constexpr double shadowHeight = 9;  // of the slit
constexpr double unprinted = 20;    // below the last line, to the torn edge
constexpr double tooth = 5;         // of the torn edge: its width; it is less deep
constexpr double foldHeight = 10;   // where paper that reaches the log's end bends away

// Of the lines above the newest; its contrast is at least 4.5 in the deepest shade.
const QColor oldInk(0x3e, 0x2d, 0x1c);

// In logical pixels, of which rows of a list view take whole ones.
int RowHeight(const Services& services) {
    return qRound(services.ToLogical(linePitch));
}

/// Writes the lines on the paper.
class LinePainter : public QAbstractItemDelegate {
public:
    LinePainter(QObject* parent, const Services& services, const std::vector<Colour>& movers)
        : QAbstractItemDelegate(parent), services_(services), movers_(movers) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const QRectF row = option.rect;
        const double unit = services_.ToLogical(1);
        if (option.state.testFlag(QStyle::State_Selected)) {
            painter->fillRect(row, palette::Brass);
            painter->fillRect(QRectF(row.x(), row.y(), markWidth * unit, row.height()), palette::Mark);
        }
        const QRectF mark(row.x() + markWidth * unit, row.y() + 2 * unit, moverWidth * unit,
                          row.height() - 4 * unit);
        if (const Colour mover = movers_[static_cast<std::size_t>(index.row())]; mover != 0)
            painter->fillRect(mark, palette::PlayerMark[mover]);
        const double size = fontSize * std::min(unit, row.width() / paperWidth);
        const QRectF text = row.adjusted(indent * unit, 0, 0, 0);
        const QString line = index.data().toString();
        const bool isHeading = index.row() == 0, isNewest = index.row() == index.model()->rowCount() - 1;
        painter->setFont(TextFont(size, isHeading || isNewest ? QFont::Bold : QFont::Medium));
        const bool isStrong = isNewest || option.state.testFlag(QStyle::State_Selected);
        painter->setPen(isStrong ? palette::Ink : oldInk);
        if (isHeading) {
            painter->drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, line);
        } else {
            PaintMove(*painter, text, line.trimmed());
        }
    }

    // Only the height counts here: the view makes each row as wide as the paper.
    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override {
        return {1, RowHeight(services_)};
    }

private:
    // The number in a column of its own, so that the moves begin below one another.
    static void PaintMove(QPainter& painter, const QRectF& text, const QString& line) {
        const QFontMetricsF metrics(painter.font());
        const qsizetype digits = line.indexOf(' ');
        const QString number = line.left(digits);
        const double column =
            std::max(metrics.horizontalAdvance("000"), metrics.horizontalAdvance(number));
        const int flags = Qt::AlignVCenter | Qt::TextDontClip;
        painter.drawText(QRectF(text.topLeft(), QSizeF(column, text.height())), Qt::AlignRight | flags,
                         number);
        painter.drawText(text.adjusted(column + metrics.horizontalAdvance("0"), 0, 0, 0),
                         Qt::AlignLeft | flags, line.mid(digits + 1));
    }

    const Services& services_;
    const std::vector<Colour>& movers_;
};

}  // namespace

QVariant MoveLog::Lines::data(const QModelIndex& index, int role) const {
    if (role == Qt::AccessibleTextRole && log_.RowText) return log_.RowText(index.row());
    return QStringListModel::data(index, role);
}

MoveLog::MoveLog(QWidget* parent, const Services& services)
    : QListView(parent), services_(services), lines_(*this) {
    setModel(&lines_);  // first: most of what follows lays the rows out
    setObjectName("Lis_Grabadora");
    setAccessibleName("Registro de jugadas");
    setFocusPolicy(Qt::NoFocus);
    setSelectionMode(QAbstractItemView::NoSelection);  // by hand; the recorder selects by Select
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setCursor(Qt::ArrowCursor);
    setFrameShape(QFrame::NoFrame);
    viewport()->setAutoFillBackground(false);  // the paper shows through
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setUniformItemSizes(true);  // else every layout would measure every line
    setItemDelegate(new LinePainter(this, services, movers_));
}

void MoveLog::Begin(const QString& heading) {
    movers_ = {0};
    lines_.setStringList({heading});
}

void MoveLog::Add(const QString& line, Colour mover) {
    const int row = lines_.rowCount();
    movers_.resize(static_cast<std::size_t>(row) + 1);
    movers_.back() = mover;
    lines_.insertRow(row);
    lines_.setData(lines_.index(row), line);
    clearSelection();
}

// The row is not made the current one: screen readers would believe that it has the focus.
void MoveLog::Select(int row) {
    const QModelIndex line = lines_.index(row);
    selectionModel()->select(line, QItemSelectionModel::ClearAndSelect);
    if (line.isValid()) {
        scrollTo(line);
    } else {
        scrollToBottom();
    }
}

void MoveLog::CutFrom(int row) {
    lines_.removeRows(row, lines_.rowCount() - row);
}

// Rows have come or gone, or the log has another size. The selected row or else the newest one is shown
// here, once for each layout, because a layout costs time for every row: thousands that are added in a
// loaded game must not be laid out one by one.
void MoveLog::updateGeometries() {
    QListView::updateGeometries();
    update();  // the paper has another length
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    if (selected.isEmpty()) {
        verticalScrollBar()->setValue(verticalScrollBar()->maximum());
    } else {
        scrollTo(selected.first());
    }
}

// As high as so many whole rows, so that no line is cut at rest. Below them the paper stays empty. With
// the size the scale may have changed, too, and with it the height of the rows.
void MoveLog::resizeEvent(QResizeEvent* event) {
    const int edge = qRound(services_.ToLogical(padding));
    const int rowHeight = RowHeight(services_);
    const int visibleRows = std::max(1, (height() - 2 * edge) / rowHeight);
    setViewportMargins(0, edge, 0, std::max(0, height() - edge - visibleRows * rowHeight));
    QListView::resizeEvent(event);
    scheduleDelayedItemsLayout();
}

// The paper scrolls with its lines, but the shadow on it stays: all of it is painted again.
void MoveLog::scrollContentsBy(int dx, int dy) {
    QListView::scrollContentsBy(dx, dy);
    update();
}

bool MoveLog::event(QEvent* event) {
    if (event->type() != QEvent::Paint) return QListView::event(event);
    ShowPaper();
    return true;
}

// Where the last line ends, in logical pixels; it may be below the log.
int MoveLog::PrintedTo() const {
    return viewport()->y() + lines_.rowCount() * RowHeight(services_) - verticalScrollBar()->value();
}

// Teeth of changing depth, which are the same in every game.
QPainterPath MoveLog::Paper() const {
    constexpr double depths[] = {0, 3.1, 0.8, 2.3, 0.4, 3.6, 1.4, 2.8, 0.2, 2.0, 0.9};
    const double unit = services_.ToLogical(1);
    const double end = PrintedTo() + unprinted * unit;
    QPainterPath paper;
    if (end + tooth * unit >= height()) {
        paper.addRect(rect());
        return paper;
    }
    QPolygonF edge({QPointF(width(), 0), QPointF(0, 0)});
    const int teeth = static_cast<int>(width() / (tooth * unit));
    for (int point = 0; point <= teeth; ++point)
        edge << QPointF(point * tooth * unit, end + depths[point % std::size(depths)] * unit);
    edge << QPointF(width(), end);
    paper.addPolygon(edge);
    return paper;
}

// The paper without its lines looks the same again after two of them: it is drawn once and copied.
void MoveLog::ShowPaper() {
    const double ratio = devicePixelRatioF();
    const QString name = QStringLiteral("paper %1 %2 %3 %4 %5")
                             .arg(width())
                             .arg(height())
                             .arg(ratio)
                             .arg(PrintedTo())
                             .arg(verticalScrollBar()->value() % (2 * RowHeight(services_)));
    QPixmap paper;
    if (!QPixmapCache::find(name, &paper)) {
        paper = QPixmap((QSizeF(size()) * ratio).toSize());
        paper.setDevicePixelRatio(ratio);
        paper.fill(Qt::transparent);
        QPainter painter(&paper);
        PaintPaper(painter);
        QPixmapCache::insert(name, paper);
    }
    QPainter(this).drawPixmap(0, 0, paper);
}

// Every other line lies on a tint. The lamp falls on the newest line; above it the paper lies in the
// shade of the recorder, and its upper edge in the shadow of the slit that it comes out of. It bends at
// its sides, and at its end when it is longer than the log.
void MoveLog::PaintPaper(QPainter& painter) const {
    painter.setRenderHint(QPainter::Antialiasing);
    const QPainterPath paper = Paper();
    const double unit = services_.ToLogical(1);
    const double end = std::min<double>(paper.boundingRect().bottom(), height());
    // The growing paper is painted anew for each line, so each effect fills only the part where it
    // shows.
    const auto fill = [&](const QRectF& part, const QPainterPath& path, const QBrush& brush) {
        painter.setClipRect(part);
        painter.fillPath(path, brush);
        painter.setClipping(false);
    };
    const QRectF lowest(0, end - 5 * unit, width(), 10 * unit);
    for (const double fall : {3.6, 2.4, 1.2})
        fill(lowest, paper.translated(0, fall * unit), QColor(0, 0, 0, 60));
    painter.fillPath(paper, palette::Paper);
    const int rowHeight = RowHeight(services_);
    const QRect ruled(0, viewport()->y(), width(), std::min(PrintedTo(), height()) - viewport()->y());
    int top = ruled.top() - verticalScrollBar()->value() % (2 * rowHeight);
    for (; top < ruled.bottom(); top += 2 * rowHeight) {
        painter.fillRect(QRect(0, top, width(), rowHeight) & ruled, palette::RuledPaper);
    }
    QLinearGradient shade(0, 0, 0, end);
    constexpr double litFrom = 0.9;
    shade.setColorAt(0, QColor(96, 52, 10, 92));
    shade.setColorAt(std::max(0.1, litFrom - rowsInTheLamp * rowHeight / end), QColor(110, 62, 12, 72));
    shade.setColorAt(litFrom, QColor(130, 78, 18, 0));
    painter.fillPath(paper, shade);
    if (end >= height()) {
        const double fold = services_.ToLogical(foldHeight);
        QLinearGradient away(0, end - fold, 0, end);
        away.setColorAt(0, QColor(40, 18, 4, 0));
        away.setColorAt(0.6, QColor(40, 18, 4, 50));
        away.setColorAt(1, QColor(40, 18, 4, 190));
        painter.fillRect(QRectF(0, end - fold, width(), fold), away);
    }
    QLinearGradient bend(0, 0, width(), 0);
    bend.setColorAt(0, QColor(70, 40, 10, 40));
    bend.setColorAt(0.06, QColor(70, 40, 10, 0));
    bend.setColorAt(0.9, QColor(70, 40, 10, 0));
    bend.setColorAt(1, QColor(70, 40, 10, 60));
    fill(QRectF(0, 0, 0.06 * width(), height()), paper, bend);
    fill(QRectF(0.9 * width(), 0, 0.1 * width(), height()), paper, bend);
    const double shadow = services_.ToLogical(shadowHeight);
    QLinearGradient slit(0, 0, 0, shadow);
    slit.setColorAt(0, QColor(20, 8, 2, 170));
    slit.setColorAt(0.4, QColor(20, 8, 2, 50));
    slit.setColorAt(1, QColor(20, 8, 2, 0));
    painter.fillRect(QRectF(0, 0, width(), shadow), slit);
}

}  // namespace zorva
