#include "dialogs/ChancePlot.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "app/Cursors.h"
#include "app/KeyStrokes.h"
#include "app/Palette.h"
#include "app/Sentences.h"
#include "dialogs/Decoration.h"
#include "dialogs/GameWords.h"
#include "dialogs/Geometry.h"
#include "dialogs/TextStyle.h"

namespace zorva {
namespace {

// In layout pixels.
constexpr double toldHeight = 27, axisLeft = 30, axisBelow = 19, rightMargin = 8;
constexpr double toldLeft = 190;
constexpr double pieceSize = 22;
constexpr double hatchPitch = 7;
constexpr double slot = 86;  // of one colour in the line above the field
constexpr TextStyle plain{13}, bold{14, QFont::Bold};

/// From the bottom of the field upwards: red and green, which some players see alike, do not touch.
constexpr Colour stack[] = {1, 3, 2, 4};

// The piece's colour as it would be printed on paper.
QColor BandColour(Colour colour) {
    const QColor& mark = palette::PlayerMark[colour];
    const auto mix = [](int one, int paper) { return (3 * one + paper) / 4; };
    return {mix(mark.red(), palette::Paper.red()), mix(mark.green(), palette::Paper.green()),
            mix(mark.blue(), palette::Paper.blue())};
}

// Red and green are hatched in opposite directions, so that no hue is needed. The brush repeats a tile
// of device pixels, which is much faster than lines cut off at the edges of a band.
QBrush BandBrush(Colour colour, double unit) {
    const int pitch = qRound(hatchPitch * unit);
    QPixmap tile(pitch, pitch);
    tile.fill(BandColour(colour));
    if (colour >= 3) {
        QPainter painter(&tile);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(QColor(0, 0, 0, 50), 1.1 * unit));
        const int rise = colour == 3 ? -1 : 1;
        for (int copy = -1; copy <= 1; ++copy) {
            const QPointF middle(pitch / 2.0 + copy * pitch, pitch / 2.0);
            painter.drawLine(middle - QPointF(pitch, rise * pitch),
                             middle + QPointF(pitch, rise * pitch));
        }
    }
    QBrush brush(tile);
    brush.setTransform(QTransform::fromScale(1 / unit, 1 / unit));
    return brush;
}

// A step of 1, 2 or 5 times a power of ten that gives at most `most` steps.
int StepFor(int count, int most) {
    for (int power = 1;; power *= 10) {
        for (const int digit : {1, 2, 5}) {
            if (count <= digit * power * most) return digit * power;
        }
    }
}

void DrawPiece(QPainter& painter, const Services& services, Colour colour, QPointF centre) {
    QRectF area(0, 0, pieceSize, pieceSize);
    area.moveCenter(centre);
    decoration::DrawPixmap(painter, QStringLiteral("piece_%1").arg(colour), area, services);
}

}  // namespace

ChancePlot::ChancePlot(QWidget* page, const Services& services, const GameReport& report)
    : QWidget(page), services_(services), report_(report) {
    setObjectName("Pic_Grafico");
    setAccessibleName("Gráfico de la partida");
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(services.cursors.Hand());
}

void ChancePlot::ShowReport() {
    bands_ = {};
    MarkRecord(std::min(marked_, RecordsOf(report_)));
}

int ChancePlot::RecordTold() const {
    return marked_ >= 0 ? marked_ : static_cast<int>(report_.shown);
}

// Qt reports every description that is set, a new one or not.
void ChancePlot::MarkRecord(int record) {
    marked_ = record;
    const QString chances = ChancesText(report_, RecordTold());
    if (chances != accessibleDescription()) setAccessibleDescription(chances);
    update();
}

// ------------------------------------------------------------------------------------- geometry

QRectF ChancePlot::Field() const {
    return LayoutArea(*this, services_).adjusted(axisLeft, toldHeight, -rightMargin, -axisBelow);
}

double ChancePlot::XOf(int record) const {
    return Field().left() + Field().width() * record / std::max(1, RecordsOf(report_));
}

int ChancePlot::RecordAt(QPointF position) const {
    const double share = (position.x() / services_.ToLogical(1) - Field().left()) / Field().width();
    return std::clamp(qRound(share * RecordsOf(report_)), 0, RecordsOf(report_));
}

// -------------------------------------------------------------------------------------- drawing

// The bands stay while the hairline moves.
QPixmap ChancePlot::BandsPixmap() const {
    QPixmap pixmap(size() * services_.devicePixelRatio);
    pixmap.setDevicePixelRatio(services_.devicePixelRatio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.scale(services_.ToLogical(1), services_.ToLogical(1));
    decoration::DrawSunkenPaper(painter, Field(), palette::RuledPaper);
    DrawBands(painter);
    decoration::DrawInnerShadow(painter, Field());
    DrawAxes(painter);
    return pixmap;
}

void ChancePlot::DrawBands(QPainter& painter) const {
    if (!IsAnalysed(report_, 0)) return;
    const int last = std::min(static_cast<int>(report_.worths.size()), RecordsOf(report_));
    std::vector<QPointF> lower;
    for (int record = 0; record <= last; ++record) lower.emplace_back(XOf(record), Field().bottom());
    std::vector<std::tuple<Colour, std::vector<QPointF>, std::vector<QPointF>>> bands;
    for (const Colour colour : stack) {
        if (!IsTakingPart(report_.settings, colour)) continue;
        std::vector<QPointF> upper = lower;
        for (int record = 0; record <= last; ++record)
            upper[record].ry() -= Field().height() * ChanceAfter(report_, record, colour).value;
        bands.emplace_back(colour, lower, upper);
        lower = upper;
    }
    for (const auto& [colour, below, above] : bands) {
        QPolygonF band(QList<QPointF>(below.begin(), below.end()));
        band.append(QList<QPointF>(above.rbegin(), above.rend()));
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setPen(Qt::NoPen);
        painter.setBrush(BandBrush(colour, services_.layout.Unit));
        painter.drawPolygon(band);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette::Line, 1));
        // Line by line: Qt takes ten times as long for a polyline.
        for (std::size_t i = 1; i < above.size(); ++i) painter.drawLine(above[i - 1], above[i]);
    }
    for (const auto& [colour, below, above] : bands) DrawMark(painter, colour, below, above);
}

// The piece stands where its band is widest, if there is room for it anywhere.
void ChancePlot::DrawMark(QPainter& painter, Colour colour, const std::vector<QPointF>& lower,
                          const std::vector<QPointF>& upper) const {
    double widest = pieceSize - 4;
    QPointF place;
    for (std::size_t middle = 0; middle < lower.size(); ++middle) {
        const double x = lower[middle].x();
        if (x < lower.front().x() + pieceSize / 2 || x > lower.back().x() - pieceSize / 2) continue;
        double top = 0, bottom = Field().bottom();
        for (std::size_t i = middle; i < lower.size() && lower[i].x() < x + pieceSize / 2; ++i) {
            top = std::max(top, upper[i].y());
            bottom = std::min(bottom, lower[i].y());
        }
        for (std::size_t i = middle + 1; i-- > 0 && lower[i].x() > x - pieceSize / 2;) {
            top = std::max(top, upper[i].y());
            bottom = std::min(bottom, lower[i].y());
        }
        if (bottom - top <= widest) continue;
        widest = bottom - top;
        place = {x, (top + bottom) / 2};
    }
    if (!place.isNull()) DrawPiece(painter, services_, colour, place);
}

void ChancePlot::DrawAxes(QPainter& painter) const {
    const QRectF field = Field();
    for (const int games : {0, 50, 100}) {
        const double y = field.bottom() - field.height() * games / 100;
        painter.setPen(QPen(QColor(0, 0, 0, 90), 0.8));
        if (games == 50) painter.drawLine(QPointF(field.left(), y), QPointF(field.right(), y));
        painter.setPen(palette::FaintInk);
        DrawLine(painter,
                 {0, std::clamp(y - 10, field.top() - 4, field.bottom() - 16), axisLeft - 5, 20},
                 QString::number(games), plain, Qt::AlignRight);
    }
    const int records = RecordsOf(report_);
    for (int record = 0, step = StepFor(records, 8); record <= records; record += std::max(1, step)) {
        painter.setPen(QPen(palette::FaintInk, 1));
        painter.drawLine(QPointF(XOf(record), field.bottom()), QPointF(XOf(record), field.bottom() + 4));
        DrawLine(painter, {XOf(record) - 25, field.bottom() + 3, 50, 18}, QString::number(record), plain,
                 Qt::AlignHCenter);
    }
}

// The chances after one move, each beside the piece of its colour.
void ChancePlot::DrawTold(QPainter& painter) const {
    const int record = RecordTold();
    const double wide = width() / services_.ToLogical(1), high = toldHeight - 3;
    painter.setPen(palette::Ink);
    if (!IsAnalysed(report_, record))
        return DrawLine(painter, {0, 0, wide, high}, ChancesText(report_, record), bold);
    DrawLine(painter, {0, 0, toldLeft - 6, high}, RecordText(record) + ". De cada 100 gana:", bold);
    double left = toldLeft;
    for (const Colour colour : ColoursOf(report_)) {
        DrawPiece(painter, services_, colour, {left + pieceSize / 2, high / 2});
        DrawLine(painter, {left + pieceSize + 1, 0, slot - pieceSize - 6, high},
                 OfHundredText(ChanceAfter(report_, record, colour)), bold);
        left += slot;
    }
}

// The move that the board shows, by a line with a head; the one under the mouse by a thin line.
void ChancePlot::DrawHairlines(QPainter& painter) const {
    const QRectF field = Field();
    const auto line = [&](int record, double width) {
        const QPointF top(XOf(record), field.top()), bottom(XOf(record), field.bottom());
        painter.setPen(QPen(palette::Paper, width + 2));
        painter.drawLine(top, bottom);
        painter.setPen(QPen(palette::Ink, width));
        painter.drawLine(top, bottom);
    };
    if (RecordsOf(report_) == 0) return;
    const int shown = std::min(static_cast<int>(report_.shown), RecordsOf(report_));
    line(shown, 2);
    painter.setPen(QPen(palette::Paper, 1));
    painter.setBrush(palette::Ink);
    const QPointF tip(XOf(shown), field.top() + 5);
    painter.drawPolygon(QPolygonF({tip, tip + QPointF(-6, -9), tip + QPointF(6, -9)}));
    if (marked_ >= 0) line(marked_, 1);
}

void ChancePlot::paintEvent(QPaintEvent*) {
    if (bands_.isNull()) bands_ = BandsPixmap();
    QPainter(this).drawPixmap(0, 0, bands_);
    LayoutPainter painter(this, services_);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    DrawTold(painter);
    DrawHairlines(painter);
    if (hasFocus()) decoration::DrawFocus(painter, Field().adjusted(-3, -3, 3, 3), 3);
}

// ---------------------------------------------------------------------------------------- input

void ChancePlot::mouseMoveEvent(QMouseEvent* event) {
    MarkRecord(RecordAt(event->position()));
}

void ChancePlot::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && Chosen) Chosen(RecordAt(event->position()));
}

void ChancePlot::leaveEvent(QEvent*) {
    MarkRecord(-1);
}

void ChancePlot::focusOutEvent(QFocusEvent* event) {
    MarkRecord(-1);
    QWidget::focusOutEvent(event);
}

void ChancePlot::keyPressEvent(QKeyEvent* event) {
    const int last = RecordsOf(report_);
    int record = RecordTold();
    switch (event->key()) {
        case Qt::Key_Left: --record; break;
        case Qt::Key_Right: ++record; break;
        case Qt::Key_PageUp: record -= 10; break;
        case Qt::Key_PageDown: record += 10; break;
        case Qt::Key_Home: record = 0; break;
        case Qt::Key_End: record = last; break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (IsKeyStroke(*event) && Chosen) Chosen(record);
            return;
        default: return QWidget::keyPressEvent(event);
    }
    MarkRecord(std::clamp(record, 0, last));
    services_.Say(accessibleDescription());
}

}  // namespace zorva
