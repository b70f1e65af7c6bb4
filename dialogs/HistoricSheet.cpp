#include "dialogs/HistoricSheet.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "app/Artwork.h"
#include "app/Cursors.h"
#include "app/Fonts.h"
#include "app/Palette.h"
#include "dialogs/Decoration.h"
#include "dialogs/Geometry.h"
#include "dialogs/TextStyle.h"

namespace zorva {
namespace {

constexpr Short pauseOfPage = 10;  // hundredths of a second at speed 0

// The sheet's columns, in layout pixels: the red rules between them, and where their texts stand.
constexpr Short columnRules[] = {84, 122, 282};
constexpr double dateLeft = 22;
constexpr double timeLeft = 89;
constexpr double namesMiddle = 200;
constexpr double namesWidth = 152;
constexpr double pointsLeft = 293;
constexpr double headingLeft = 33;
constexpr double headingOfPointsLeft = 290;

constexpr double firstRecordTop = 21;
constexpr double lineHeight = 14;
constexpr double recordHeight = 2 * lineHeight + 4;

// Drawn, clicked and focused by these boxes alone.
constexpr Box newerCorner{0, 272, 52, 30};
constexpr Box olderCorner{298, 272, 52, 30};

const char* const heading = "Fecha         Hora    Ganador / Perdedores            Puntos";
constexpr TextStyle headingStyle{11.5, QFont::Bold};
constexpr TextStyle recordStyle{11.2, QFont::Normal, true};

// DecodeHistoryRecord returns UTF-8; the file itself is Windows-1252.
QString Read(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

// The losers as they fit their column in the smallest font: the widest words lose their ends, so that of
// every name something is left.
QString Shortened(const QString& losers) {
    constexpr TextStyle smallest{SmallestFont, QFont::Normal, true};
    const QString end = QStringLiteral("…");
    QStringList words = losers.split(' ');
    const auto isNarrower = [&](const QString& one, const QString& other) {
        return WidthOf(one, smallest) < WidthOf(other, smallest);
    };
    while (WidthOf(words.join(' '), smallest) > namesWidth) {
        QString& widest = *std::max_element(words.begin(), words.end(), isNarrower);
        const QString comma = widest.endsWith(',') ? "," : "";
        widest.chop(comma.size());
        if (widest.endsWith(end)) widest.chop(1);
        widest = widest.chopped(1) + end + comma;
    }
    return words.join(' ');
}

// The box moved and rounded to whole device pixels, at least one each way. A rule blended over two lines
// of pixels would lose its pure colour, and some rules would look thicker than others.
QRectF OnDevicePixels(const QPainter& painter, const QRectF& box) {
    const QTransform toDevice = painter.deviceTransform();
    const QRectF area = toDevice.mapRect(box);
    const QRectF whole(qRound(area.left()), qRound(area.top()), std::max(1, qRound(area.width())),
                       std::max(1, qRound(area.height())));
    return toDevice.inverted().mapRect(whole);
}

}  // namespace

PageCorner::PageCorner(QWidget* sheet, const Services& services, const char* objectName,
                       const QString& name)
    : QAbstractButton(sheet), services_(services) {
    setObjectName(objectName);
    setAccessibleName(name);
    setAttribute(Qt::WA_TransparentForMouseEvents);  // the sheet gets them
}

void PageCorner::paintEvent(QPaintEvent*) {
    if (!hasFocus()) return;
    LayoutPainter painter(this, services_);
    decoration::DrawFocus(painter, LayoutArea(*this, services_).adjusted(2, 2, -2, -2), 5);
}

HistoricSheet::HistoricSheet(QWidget* window, const Services& services, const History& history)
    : QWidget(window),
      services_(services),
      lisDatos_(history),
      pages_(static_cast<long>(history.Count())),
      older_(AddCorner("Pic_Antiguas", "Partidas más antiguas", olderCorner, &HistoricSheet::TurnOlder)),
      newer_(
          AddCorner("Pic_Recientes", "Partidas más recientes", newerCorner, &HistoricSheet::TurnNewer)) {
    setObjectName("Pic_Carpeta");
    setAccessibleName("Histórico de partidas");
    setMouseTracking(true);
    setFocusPolicy(Qt::TabFocus);  // so that screen readers read the page
    PageChanged();
}

PageCorner* HistoricSheet::AddCorner(const char* objectName, const QString& name, const Box& box,
                                     void (HistoricSheet::*turn)()) {
    auto* corner = new PageCorner(this, services_, objectName, name);
    PlaceControl(corner, box, services_);
    connect(corner, &QAbstractButton::clicked, this, turn);
    return corner;
}

void HistoricSheet::TurnOlder() {
    if (pages_.CanTurnOlder()) Turn(&HistoricPages::TurnOlder);
}

void HistoricSheet::TurnNewer() {
    if (pages_.CanTurnNewer()) Turn(&HistoricPages::TurnNewer);
}

// The pause lets the sound of the page begin before the new page is there.
void HistoricSheet::Turn(void (HistoricPages::*turn)()) {
    services_.PlaySound(Sound::HistoryPage);
    services_.Pause(pauseOfPage);
    (pages_.*turn)();
    PageChanged();
    Say();
    if (Turned) Turned();
}

void HistoricSheet::Say() const {
    services_.Say(accessibleDescription());
}

QString HistoricSheet::GameText(long index) const {
    const HistoryEntry entry = DecodeHistoryRecord(lisDatos_.Record(index));
    return QStringLiteral("%1, %2. Ganador: %3. Perdedores: %4. Puntos: %5.")
        .arg(Read(entry.date), Read(entry.time), Read(entry.winner), Read(entry.losers),
             Read(entry.points));
}

QString HistoricSheet::PageText() const {
    if (pages_.Entries() == 0) return "No hay partidas en el histórico.";
    const bool isSingle = pages_.FirstGame() == pages_.LastGame();
    const QString games = QString(isSingle ? "partida %1" : "partidas %1 a %2").arg(pages_.FirstGame());
    QStringList lines{QStringLiteral("Página %1: %2 de %3.")
                          .arg(pages_.Page())
                          .arg(isSingle ? games : games.arg(pages_.LastGame()))
                          .arg(pages_.Entries())};
    for (long i = pages_.Top(); i >= pages_.Bottom(); --i) lines << GameText(i);
    return lines.join('\n');
}

// A corner that turns nothing is hidden from the keyboard, as it is not drawn either.
void HistoricSheet::PageChanged() {
    setAccessibleDescription(PageText());
    older_->setVisible(pages_.CanTurnOlder());
    newer_->setVisible(pages_.CanTurnNewer());
    update();
}

void HistoricSheet::paintEvent(QPaintEvent*) {
    LayoutPainter painter(this, services_);
    DrawRuling(painter);
    DrawHeading(painter);
    painter.setPen(palette::Ink);
    double top = firstRecordTop;
    for (long i = pages_.Top(); i >= pages_.Bottom(); --i, top += recordHeight) {
        DrawRecord(painter, i, top);
    }
    DrawCorners(painter);
    if (hasFocus()) decoration::DrawFocus(painter, QRectF(2, 2, Width - 4, Height - 4), 3);
}

// Green rules below each of the eight places, written on or not, and red ones between the columns.
void HistoricSheet::DrawRuling(QPainter& painter) const {
    const auto fill = [&painter](const QRectF& rule, const QColor& colour) {
        painter.fillRect(OnDevicePixels(painter, rule), colour);
    };
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (int slot = 1; slot <= HistoricPages::RecordsPerPage; ++slot) {
        fill({15, firstRecordTop + slot * recordHeight - 3, Width - 30, 1}, QColor(0, 255, 0));
    }
    for (const Short x : columnRules) fill({qreal(x), 5, 1, Height - 5}, QColor(255, 0, 0));
    painter.setRenderHint(QPainter::Antialiasing);
}

// The heading is one text whose runs of blanks place its words over the columns. They do in a font of
// equal widths; in ours a blank is as wide as it takes for the last word to stand over its column.
void HistoricSheet::DrawHeading(QPainter& painter) const {
    const QString text(heading);
    const QString beforePoints = text.left(text.lastIndexOf(' ') + 1);
    const double blank = BlankWidthFor(beforePoints, headingStyle, headingOfPointsLeft - headingLeft);
    painter.setPen(palette::Ink);
    DrawSpaced(painter, QRectF(headingLeft, 5, Width - headingLeft, 15), text, headingStyle, blank);
}

// A record takes two lines: the losers stand below the winner.
void HistoricSheet::DrawRecord(QPainter& painter, long index, double top) const {
    const HistoryEntry entry = DecodeHistoryRecord(lisDatos_.Record(index));
    const auto write = [&](double left, double y, double width, const QString& text,
                           Qt::Alignment alignment = Qt::AlignLeft) {
        DrawLine(painter, QRectF(left, y, width, lineHeight), text, recordStyle, alignment);
    };
    const double namesLeft = namesMiddle - namesWidth / 2;
    write(dateLeft, top, columnRules[0] - dateLeft - 1, Read(entry.date));
    write(timeLeft, top, columnRules[1] - timeLeft - 1, Read(entry.time));
    write(namesLeft, top, namesWidth, Read(entry.winner), Qt::AlignHCenter);
    write(pointsLeft, top, Width - 15 - pointsLeft, Read(entry.points));
    write(namesLeft, top + lineHeight, namesWidth, Shortened(Read(entry.losers)), Qt::AlignHCenter);
}

void HistoricSheet::DrawCorners(QPainter& painter) const {
    const auto draw = [&](const PageCorner* corner, const char* drawing, const Box& box) {
        if (corner == lit_) {
            decoration::DrawWarmLit(painter, drawing, ToRect(box), services_);
        } else {
            services_.artwork.Paint(painter, drawing, ToRect(box));
        }
    };
    if (pages_.CanTurnOlder()) draw(older_, "historic_older", olderCorner);
    if (pages_.CanTurnNewer()) draw(newer_, "historic_newer", newerCorner);
}

// The corner under a point, if it turns the sheet now.
const PageCorner* HistoricSheet::CornerAt(Point point) const {
    if (pages_.CanTurnOlder() && olderCorner.Contains(point)) return older_;
    if (pages_.CanTurnNewer() && newerCorner.Contains(point)) return newer_;
    return nullptr;
}

void HistoricSheet::Light(const PageCorner* corner) {
    setCursor(corner != nullptr ? services_.cursors.Hand() : Qt::ArrowCursor);
    if (std::exchange(lit_, corner) != corner) update();
}

void HistoricSheet::leaveEvent(QEvent*) {
    Light(nullptr);
}

void HistoricSheet::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const PageCorner* corner = CornerAt(ToLayout(event->position(), services_));
    if (corner == older_) TurnOlder();
    if (corner == newer_) TurnNewer();
}

void HistoricSheet::mouseMoveEvent(QMouseEvent* event) {
    Light(CornerAt(ToLayout(event->position(), services_)));
}

}  // namespace zorva
