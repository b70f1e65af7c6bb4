#include "dialogs/DicePage.h"

#include <QPainter>
#include <QStringList>
#include <algorithm>

#include "app/Palette.h"
#include "app/Sentences.h"
#include "dialogs/Decoration.h"
#include "dialogs/GameWords.h"
#include "dialogs/Geometry.h"
#include "dialogs/TextStyle.h"

namespace zorva {
namespace {

// In layout pixels.
constexpr double edge = 14, contentWidth = 538;
constexpr double rowsTop = 57, rowHeight = 21, runsGap = 7;
constexpr double headWidth = 106;      // of a row: its dice
constexpr double largestColumn = 216;  // of one colour
constexpr double bandShare = 0.6;      // of a lane: the counts that chance allows
constexpr double figureWidth = 32;
constexpr double dieSize = 22, pieceSize = 22;
constexpr double linePitch = 17;
constexpr TextStyle plain{13}, bold{13, QFont::Bold};
const QColor bandColour(0xdd, 0xc9, 0x98);

const char* const rowNames[DiceOfColour::Rows] = {
    "uno", "dos", "tres", "cuatro", "cinco", "seis", "Dos seises seguidos", "Tres seises seguidos"};

const char* const whyFair =
    "El dado es el mismo para todos, personas y ordenadores. Lo tira el generador de azar del "
    "sistema, que nadie puede prever, y el ordenador elige cuando el dado ya está quieto: no sabe "
    "qué saldrá después. Una partida es poco para juzgar un dado. El programa zorva-sim lo tira "
    "millones de veces y cuenta las caras; el manual dice cómo.";

QString RangeText(const DiceCount& count) {
    const NormalRange normal = NormalRangeOf(count.tries);
    return QStringLiteral("de %1 a %2").arg(normal.low).arg(normal.high);
}

// In the middle of a lane lies the band of the counts that chance allows, equally wide for all.
QRectF BandOf(const QRectF& lane) {
    QRectF band = lane;
    band.setWidth(lane.width() * bandShare);
    band.moveCenter(lane.center());
    return band;
}

// The dice of a row: one face, or two or three sixes.
std::vector<int> FacesOf(std::size_t row) {
    if (row < 6) return {static_cast<int>(row) + 1};
    return std::vector<int>(row - 4, 6);
}

}  // namespace

DicePage::DicePage(QWidget* window, const Services& services) : QWidget(window), services_(services) {
    setObjectName("Pic_Dados");
    setAccessibleName("Los dados");
    setFocusPolicy(Qt::StrongFocus);  // so that screen readers read the page
}

void DicePage::Show(const GameReport& report) {
    settings_ = report.settings;
    colours_ = ColoursOf(report);
    dice_ = DiceOfGame(report.game);
    QStringList lines{JudgementText()};
    for (const Colour colour : colours_) lines << ColourText(colour);
    lines << whyFair;
    if (lines.join('\n') != accessibleDescription()) setAccessibleDescription(lines.join('\n'));
    update();
}

// ------------------------------------------------------------------------------------- the texts

QString DicePage::JudgementText() const {
    int throws = 0, unusual = 0;
    for (const Colour colour : colours_) {
        throws += dice_[colour].Throws();
        unusual += dice_[colour].Unusual();
    }
    if (throws == 0) return "Todavía no se ha tirado el dado.";
    if (unusual == 0) return "Todo está dentro de lo normal.";
    const QString leave =
        unusual == 1 ? "Un punto se sale" : QStringLiteral("%1 puntos se salen").arg(unusual);
    return leave + " de lo normal. Por azar se sale uno de cada 100.";
}

QString DicePage::ColourText(Colour colour) const {
    const auto& counts = dice_[colour].counts;
    QStringList faces;
    for (std::size_t row = 0; row < 6; ++row)
        faces << QStringLiteral("%1, %2").arg(rowNames[row]).arg(counts[row].count);
    QString text = QStringLiteral("%1. Tiradas: %2. De cada cara, lo normal es %3; ha sacado: %4.")
                       .arg(PlayerText(settings_, colour))
                       .arg(dice_[colour].Throws())
                       .arg(RangeText(counts[0]), faces.join("; "));
    for (const std::size_t row : {6, 7}) {
        text += QStringLiteral(" %1: %2; lo normal es %3.")
                    .arg(rowNames[row])
                    .arg(counts[row].count)
                    .arg(RangeText(counts[row]));
    }
    return text;
}

// ------------------------------------------------------------------------------------ the drawing

double DicePage::ColumnWidth() const {
    return std::min(largestColumn, (contentWidth - headWidth) / static_cast<double>(colours_.size()));
}

void DicePage::DrawHeads(QPainter& painter) const {
    double left = edge + headWidth;
    for (const Colour colour : colours_) {
        const QRectF piece(left - 2, 10, pieceSize, pieceSize);
        decoration::DrawPixmap(painter, QStringLiteral("piece_%1").arg(colour), piece, services_);
        const double width = ColumnWidth() - pieceSize - 4;
        painter.setPen(palette::Ink);
        DrawLine(painter, {piece.right() + 3, 4, width, 18}, NameText(settings_, colour), bold);
        painter.setPen(palette::FaintInk);
        const int throws = dice_[colour].Throws();
        DrawLine(painter, {piece.right() + 3, 20, width, 18},
                 QString(throws == 1 ? "%1 tirada" : "%1 tiradas").arg(throws), plain);
        left += ColumnWidth();
    }
}

QRectF DicePage::Lane(std::size_t column, std::size_t row) const {
    const double width = ColumnWidth();
    const double top = rowsTop + static_cast<double>(row) * rowHeight + (row < 6 ? 0 : runsGap);
    return {edge + headWidth + static_cast<double>(column) * width, top, width - figureWidth - 6,
            rowHeight};
}

// The limits of the band of the faces stand above it.
void DicePage::DrawLimits(QPainter& painter) const {
    painter.setPen(palette::FaintInk);
    DrawLine(painter, {edge, rowsTop - 18, headWidth - 8, 18}, "lo normal:", plain);
    for (std::size_t column = 0; column < colours_.size(); ++column) {
        const DiceCount& count = dice_[colours_[column]].counts[0];
        const NormalRange normal = NormalRangeOf(count.tries);
        const QRectF band = BandOf(Lane(column, 0)).adjusted(-12, -18, 12, 0);
        const QRectF line(band.topLeft(), QSizeF(band.width(), 18));
        if (count.tries == 0) continue;
        DrawLine(painter, line, QString::number(normal.low), plain);
        DrawLine(painter, line, QString::number(normal.high), plain, Qt::AlignRight);
    }
}

// The dot of a count outside the band is hollow and lies beside it.
void DicePage::DrawCount(QPainter& painter, const DiceCount& count, const QRectF& lane) const {
    const NormalRange normal = NormalRangeOf(count.tries);
    const QRectF band = BandOf(lane);
    painter.fillRect(band, bandColour);
    if (count.tries == 0) return;
    const double step = band.width() / (normal.high - normal.low + 1);
    const double x = band.left() + (count.count - normal.low + 0.5) * step;
    const bool isNormal = normal.Holds(count.count);
    painter.setPen(QPen(palette::Ink, isNormal ? 1 : 2.4));
    painter.setBrush(isNormal ? palette::Ink : palette::Paper);
    painter.drawEllipse(QPointF(std::clamp(x, lane.left() + 5, lane.right() - 5), lane.center().y()), 5,
                        5);
}

void DicePage::DrawRow(QPainter& painter, std::size_t row) const {
    double left = edge;
    for (const int face : FacesOf(row)) {
        const QRectF die(left, Lane(0, row).top(), dieSize, dieSize);
        decoration::DrawPixmap(painter, QStringLiteral("die_%1").arg(face), die, services_);
        left += dieSize + 2;
    }
    for (std::size_t column = 0; column < colours_.size(); ++column) {
        const QRectF lane = Lane(column, row);
        const DiceCount& count = dice_[colours_[column]].counts[row];
        DrawCount(painter, count, lane);
        painter.setPen(palette::Ink);
        DrawLine(painter, {lane.right() + 2, lane.top(), figureWidth, rowHeight},
                 QString::number(count.count), bold);
    }
}

void DicePage::paintEvent(QPaintEvent*) {
    LayoutPainter painter(this, services_);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    double bottom = 10;
    if (!colours_.empty()) {
        DrawHeads(painter);
        DrawLimits(painter);
        for (std::size_t row = 0; row < DiceOfColour::Rows; ++row) DrawRow(painter, row);
        bottom = Lane(0, DiceOfColour::Rows).top() + 8;
    }
    painter.setPen(palette::Ink);
    DrawLine(painter, {edge, bottom, contentWidth, 18}, JudgementText(), bold);
    const WrappedText why(whyFair, contentWidth, plain);
    why.Draw(painter, {edge, bottom + 21}, linePitch);
    if (hasFocus())
        decoration::DrawFocus(painter, LayoutArea(*this, services_).adjusted(2, 2, -2, -2), 3);
}

}  // namespace zorva
