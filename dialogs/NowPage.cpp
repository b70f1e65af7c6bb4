#include "dialogs/NowPage.h"

#include <QKeyEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QPainter>
#include <QStringList>
#include <algorithm>
#include <cmath>

#include "app/Artwork.h"
#include "app/Palette.h"
#include "app/Sentences.h"
#include "dialogs/Decoration.h"
#include "dialogs/Geometry.h"
#include "dialogs/TextStyle.h"

namespace zorva {
namespace {

// In layout pixels.
constexpr double edge = 16;
constexpr QRectF heading(edge, 9, 534, 22);
constexpr double barsTop = 38, barHeight = 27;
constexpr double movesGap = 12, moveHeight = 25;
constexpr double barLeft = 150, barWidth = 262;

const engine::Estimate& ChanceOf(const PositionReport& report, Colour colour) {
    return report.chances[engine::SeatOf(colour)];
}

QString MarginText(const engine::Estimate& chance) {
    if (chance.error == 0) return {};
    return QStringLiteral("± %1").arg(MarginOfHundred(chance));
}

std::vector<Colour> ColoursIn(const PositionReport& report) {
    return report.onTurn != 0 ? ColoursTakingPart(report.settings) : std::vector<Colour>();
}

QString HeadingText(const PositionReport& report) {
    if (report.onTurn == 0) return "Todavía no hay partida.";
    const QString name = NameText(report.settings, report.onTurn);
    if (report.isWon) return "Ha ganado " + name + ".";
    const QString where = report.onTape && report.record > 0
                              ? QStringLiteral("Tras la jugada %1, ").arg(report.record)
                              : QString();
    const QString turn = where + (where.isEmpty() ? "Turno de " : "turno de ") + name;
    return turn + (report.count == 0 ? QString(".") : QStringLiteral(": cuenta %1.").arg(report.count));
}

}  // namespace

NowPage::NowPage(QWidget* window, const Services& services) : QWidget(window), services_(services) {
    setObjectName("Pic_Ahora");
    setAccessibleName("Ahora");
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
}

void NowPage::Show(const PositionReport& report) {
    const bool isSame = report.record == report_.record && report.onTurn == report_.onTurn &&
                        report.moves.size() == report_.moves.size();
    const Short piece = pointed_ < 0 ? Short{0} : report_.moves[pointed_].piece;
    report_ = report;
    setAccessibleDescription(PageText());
    update();
    if (pointed_ < 0) return;
    // The order of the moves may have changed while one was pointed at.
    const auto found = std::find_if(report_.moves.begin(), report_.moves.end(),
                                    [&](const auto& move) { return move.piece == piece; });
    if (isSame && found != report_.moves.end()) {
        pointed_ = static_cast<int>(found - report_.moves.begin());
    } else {
        PointAt(-1);
    }
}

// ------------------------------------------------------------------------------------- the texts

QString NowPage::MoveText(const PositionReport::Move& move) const {
    return MoveChanceText(report_.onTurn, move.from, move.chance);
}

QString NowPage::WorthText(const PositionReport::Move& move) const {
    if (&move == &report_.moves.front()) return "la mejor";
    return move.isNearlyBest ? QStringLiteral("casi igual") : QString();
}

QString NowPage::PageText() const {
    QStringList lines{HeadingText(report_)};
    for (const Colour colour : ColoursIn(report_)) {
        lines << PlayerText(report_.settings, colour) + " gana " +
                     ChanceText(ChanceOf(report_, colour)) + " partidas.";
    }
    for (const auto& move : report_.moves) {
        const QString worth = WorthText(move);
        lines << MoveText(move) + (worth.isEmpty() ? "." : ", " + worth + ".");
    }
    if (const QString source = SourceText(); !source.isEmpty()) lines << source;
    return lines.join('\n');
}

// What the numbers come from.
QString NowPage::SourceText() const {
    if (report_.onTurn == 0 || report_.isWon || report_.playOuts == 0) return {};
    const QString games = QLocale(QLocale::Spanish).toString(qulonglong(report_.playOuts));
    return QStringLiteral("De %1 partidas terminadas desde aquí por el ordenador.").arg(games);
}

// ------------------------------------------------------------------------------------ the drawing

QRectF NowPage::BarRow(int row) const {
    return {edge, barsTop + row * barHeight, LayoutArea(*this, services_).width() - 2 * edge, barHeight};
}

QRectF NowPage::MoveRow(int row) const {
    const double top = BarRow(static_cast<int>(ColoursIn(report_).size())).top() + movesGap;
    return {edge, top + row * moveHeight, LayoutArea(*this, services_).width() - 2 * edge, moveHeight};
}

// Mark, name, bar and figure of one colour.
void NowPage::DrawBar(QPainter& painter, Colour colour, const QRectF& row) const {
    const engine::Estimate& chance = ChanceOf(report_, colour);
    const bool isOnTurn = colour == report_.onTurn;
    decoration::DrawPixmap(painter, QStringLiteral("piece_%1").arg(colour),
                           {row.left(), row.top() + 1, 25, 25}, services_);
    painter.setPen(palette::Ink);
    DrawLine(painter, QRectF(row.left() + 31, row.top(), 98, row.height()),
             NameText(report_.settings, colour), {14, isOnTurn ? QFont::Bold : QFont::Normal});
    const QRectF groove(barLeft, row.top() + 6, barWidth, row.height() - 12);
    painter.fillRect(groove, palette::RuledPaper.darker(108));
    QRectF bar = groove;
    bar.setWidth(groove.width() * chance.value);
    painter.fillRect(bar, palette::PlayerMark[colour]);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette::Line, 0.8));
    painter.drawRect(groove);
    painter.setPen(palette::Ink);
    const QRectF figure(groove.right() + 10, row.top(), 102, row.height());
    DrawLine(painter, figure, ChanceText(chance), {14, QFont::Bold});
    painter.setPen(palette::FaintInk);
    DrawLine(painter, QRectF(row.right() - 26, row.top(), 30, row.height()), MarginText(chance), {11},
             Qt::AlignRight);
}

void NowPage::DrawMove(QPainter& painter, int move) const {
    const QRectF row = MoveRow(move);
    if (move == pointed_) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette::Light);
        painter.drawRoundedRect(row.adjusted(-6, 1, 6, -1), 5, 5);
    }
    const auto& told = report_.moves[move];
    painter.setPen(palette::Ink);
    DrawLine(painter, row.adjusted(4, 0, -96, 0), MoveText(told),
             {14, move == 0 ? QFont::Bold : QFont::Normal});
    painter.setPen(palette::FaintInk);
    DrawLine(painter, row.adjusted(row.width() - 90, 0, 0, 0), WorthText(told),
             {13, QFont::Normal, true}, Qt::AlignRight);
}

void NowPage::paintEvent(QPaintEvent*) {
    LayoutPainter painter(this, services_);
    painter.setPen(palette::Ink);
    DrawLine(painter, heading, HeadingText(report_), {15, QFont::Bold});
    int row = 0;
    for (const Colour colour : ColoursIn(report_)) DrawBar(painter, colour, BarRow(row++));
    for (int move = 0; move < static_cast<int>(report_.moves.size()); ++move) DrawMove(painter, move);
    painter.setPen(palette::FaintInk);
    if (report_.moves.empty() && !report_.isWon) {
        DrawLine(painter, MoveRow(0),
                 "Cuando una persona elija ficha, aquí verá lo que vale cada jugada.",
                 {13, QFont::Normal, true});
    }
    DrawLine(painter, QRectF(edge, 296, 534, 20), SourceText(), {12});
    if (hasFocus()) {
        decoration::DrawFocus(painter, LayoutArea(*this, services_).adjusted(2, 2, -2, -2), 3);
    }
}

// ------------------------------------------------------------------------------------- pointing

void NowPage::PointAt(int move) {
    if (move == pointed_) return;
    pointed_ = move;
    update();
    if (Pointed) Pointed(move < 0 ? Short{0} : report_.moves[move].piece);
}

void NowPage::mouseMoveEvent(QMouseEvent* event) {
    const QPointF at = event->position() / services_.ToLogical(1);
    int under = -1;
    for (int move = 0; move < static_cast<int>(report_.moves.size()); ++move) {
        if (MoveRow(move).contains(at)) under = move;
    }
    PointAt(under);
}

void NowPage::leaveEvent(QEvent*) {
    PointAt(-1);
}

void NowPage::hideEvent(QHideEvent*) {
    PointAt(-1);
}

void NowPage::keyPressEvent(QKeyEvent* event) {
    const int moves = static_cast<int>(report_.moves.size());
    const int step = event->key() == Qt::Key_Down ? 1 : event->key() == Qt::Key_Up ? -1 : 0;
    if (step == 0 || moves == 0) return QWidget::keyPressEvent(event);
    PointAt(pointed_ < 0 && step < 0 ? moves - 1 : (pointed_ + step + moves) % moves);
    services_.Say(MoveText(report_.moves[pointed_]));
}

}  // namespace zorva
