#include "app/BoardPainter.h"

#include <QtMath>
#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>
#include <vector>

#include "app/Artwork.h"
#include "app/BoardGrid.h"
#include "app/CardPainter.h"
#include "app/Fonts.h"
#include "app/Palette.h"
#include "app/PanelPainter.h"
#include "app/PiecePlaces.h"
#include "app/WarmLight.h"
#include "core/Board.h"

namespace zorva {
namespace {

// Most measures here are for the largest board, whose cell is this many layout pixels.
constexpr double boardCell = 33;

// Rings around a piece and dots between, in the units of a piece's drawing. `radius` is to the middle
// of the line: a dot is a ring that is closed in its middle.
struct RingShape {
    double radius;
    double width;
};
constexpr RingShape dotOnThePath{2.4, 4.8};
constexpr RingShape targetOfMove{15, 3};
constexpr RingShape advisedPiece{16, 3.4};
constexpr RingShape movablePiece{15, 2.8}, aroundMovable{17.6, 2.6};
constexpr RingShape choice{13.2, 3.6};  // dashed, where a piece would stand
constexpr double ringEdge = 1.5;        // of a ring on either side: light, and dark beyond
constexpr int choiceDashes = 8;
constexpr double choiceLight = 0.42;  // within it
constexpr double glowReach = 19.9;    // of the light around a piece that may move

// Of the last move, in the same units: the ring where the piece stood, the first and the last of the
// dots on the squares that it passed, and the ring around it now.
constexpr RingShape placeLeft{13, 1.8};
constexpr double firstFootprint = 2.8, lastFootprint = 4.4;  // their radius
constexpr RingShape movedPiece{15.2, 2};

// The frame of the marked piece, in the same units: half its side, the length of each leg of its
// corners, and the width of their dark line. Its light edges are half as wide.
constexpr double frameReach = 17;
constexpr double frameLeg = 8;
constexpr double frameWidth = 2.6;

// Of a house's drawing, in its units: its side, and how far from its edge the brass string lies.
constexpr double houseSide = 231, stringFromEdge = 5;

constexpr double dieOfTray = 64.0 / 72;  // the side of the die's drawing, of the tray's

QSize SideBySide(double side) {
    return QSize(qRound(side), qRound(side));
}

// Onto whole device pixels: the pixmap is copied, not resampled.
void PaintCentred(QPainter& painter, const QPixmap& pixmap, QPointF centre) {
    const QSizeF size = pixmap.size();
    painter.drawPixmap((centre - QPointF(size.width() / 2, size.height() / 2)).toPoint(), pixmap);
}

// The centres of the squares that a shown move passes and, last, of the place where it ends, in layout
// pixels. Walked step by step, for the numbers of squares leap at 68 and at the home columns.
std::vector<QPointF> PathOf(const Layout& layout, const BoardView::ShownMove& move) {
    std::vector<QPointF> path;
    if (move.piece == 0 || move.to == 0 || move.to == move.from) return path;
    const auto add = [&](zorva::Square square) {
        const Point at = layout.SquarePosition(square);
        path.emplace_back(at.x, at.y);
    };
    const Colour colour = ColourOf(move.piece);
    zorva::Square square = move.from == 0 ? ExitSquare[colour] : AdvanceSquare(move.from, 1, colour);
    for (int steps = 0; square != move.to && steps <= StepsToGoal; ++steps) {
        add(square);
        square = AdvanceSquare(square, 1, colour);
    }
    path.push_back(move.place);
    return path;
}

// Where the piece stood before the move, in layout pixels.
QPointF PlaceLeft(const Layout& layout, const BoardView::LastMove& move) {
    if (move.from != 0) return AsPointF(layout.SquarePosition(move.from));
    return AsPointF(layout.BoxPosition(ColourOf(move.piece), PieceOf(move.piece)));
}

QColor WithAlpha(QColor colour, double alpha) {
    colour.setAlphaF(static_cast<float>(alpha));
    return colour;
}

}  // namespace

QPointF BoardPainter::Device(QPointF p) const {
    return layout_.Device(p);
}

QRectF BoardPainter::DeviceF(const Box& box) const {
    return {Device(QPointF(box.x, box.y)), QSizeF(box.width, box.height) * layout_.Unit};
}

QRect BoardPainter::DeviceArea(const Box& box, double around) const {
    const double grow = around * layout_.Unit;
    return DeviceF(box).adjusted(-grow, -grow, grow, grow).toAlignedRect();
}

QRect BoardPainter::PieceArea(QPointF centre) const {
    return PieceDrawing(layout_, centre).adjusted(-2, -2, 2, 2);
}

QRect BoardPainter::PieceArea(const BoardView& view, PieceCode code) const {
    const double height = view.height[code];
    QRect area = PieceArea(view.at[code]);
    if (height > 0) {
        const double side = area.width() * PieceScale(height);
        QRectF raised(QPointF(), QSizeF(side, side));
        raised.moveCenter(Device(view.at[code]) - QPointF(0, height * layout_.Unit));
        const int shadow = area.width() / 2;
        area = area.adjusted(0, 0, shadow, shadow) | raised.adjusted(-2, -2, 2, 2).toAlignedRect();
    }
    if (code == view.inAir && view.counted != 0) {
        area |= CountArea(view).adjusted(-2, -2, 2, 2).toAlignedRect();
    }
    return area;
}

// The nearer to the eye, the larger: by 28 % for each diameter that the piece is raised, up to two.
double BoardPainter::PieceScale(double height) const {
    return 1 + 0.28 * std::min(height / layout_.PieceSize, 2.0);
}

QRect BoardPainter::HouseArea(Colour colour) const {
    return BoardGrid(layout_).House(colour);
}

QRectF BoardPainter::DiePlace(Colour colour, const BoardView::DiePose& pose) const {
    const QRectF tray = DeviceF(layout_.DieBox(colour));
    QRectF place(QPointF(), tray.size() * dieOfTray * pose.size);
    place.moveCenter(tray.center() + pose.beside * tray.width());
    return place;
}

QRect BoardPainter::DieArea(Colour colour, const BoardView::DiePose& pose) const {
    const QRectF place = DiePlace(colour, pose);
    // A square that is turned reaches furthest when it stands on a corner.
    const double beyond = pose.tilt == 0 ? 2 : place.width() * (M_SQRT2 - 1) / 2 + 2;
    return place.adjusted(-beyond, -beyond, beyond, beyond).toAlignedRect();
}

QRect BoardPainter::PulseArea(const BoardView::Pulse& pulse) const {
    QRectF area(QPointF(), QSizeF(1, 1) * 2 * (pulse.reach + 4) * layout_.Unit);
    area.moveCenter(Device(pulse.at));
    return area.toAlignedRect();
}

// ------------------------------------------------------------------------------ the empty board

void BoardPainter::SetScreen(const Layout& layout, QSize devicePixels) {
    layout_ = layout;
    Pic_TableroVacio = background_.Take(layout, devicePixels);
    Pic_TableroLleno = QPixmap(devicePixels);
    cache_.clear();
}

// -------------------------------------------------------------------------------- what changes

// From below to above: background, houses with their trays, the light round the new-game button, cards
// and line, the cup in warm light, the sign at a die, pulse, marks of the last move, of the choices and
// of a shown move, rings, pieces, the frame of the marked one, the piece in the air and the confetti.
void BoardPainter::Paint(const BoardView& view, const Settings& settings, const QRect& part) {
    QPainter painter(&Pic_TableroLleno);
    painter.setClipRect(part);
    painter.drawPixmap(part.topLeft(), Pic_TableroVacio, part);
    painter.setRenderHint(QPainter::Antialiasing);
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        if (!HouseArea(colour).intersects(part)) continue;
        PaintHouse(painter, view, settings, colour, part);
        if (DieArea(colour, view.tray[colour].pose).intersects(part)) PaintTray(painter, view, colour);
    }
    const PixmapCache cache = [this](const QString& name, QSize size,
                                     const auto& draw) -> const QPixmap& {
        return CachedPixmap(name, size, draw);
    };
    if (view.sign == BoardView::NewGameSign) PaintInvitation(painter, view.tapping, part);
    PaintCards(painter, artwork_, cache, layout_, view, part);
    PaintLine(painter, cache, layout_, view, part);
    if (view.cupLit) PaintCup(painter, part);
    if (view.sign != BoardView::NewGameSign) PaintSign(painter, view, part);
    if (view.pulse.reach != 0) PaintPulse(painter, view.pulse, part);
    PaintLastMove(painter, view, part);
    const BoardView::ShownMove& shown = view.preview.piece != 0 ? view.preview : view.shown;
    PaintChoices(painter, view, shown, part);
    PaintShownMove(painter, view, shown, part);
    const std::vector<PieceCode> pieces = PiecesFromBehind(view, part);
    // The rings first, or the ring of one piece would lie on the piece beside it.
    for (const PieceCode code : pieces) PaintRingOf(painter, view, shown, code);
    for (const PieceCode code : pieces) PaintPiece(painter, view, code);
    if (view.marked != 0) PaintFrame(painter, view.at[view.marked]);
    if (view.inAir != 0) PaintPiece(painter, view, view.inAir);
    if (view.inAir != 0 && view.counted != 0) PaintCount(painter, view);
    PaintConfetti(painter, view.confetti, part);
}

// The pieces on the ground. What stands lower on the screen is nearer and covers what stands higher.
std::vector<PieceCode> BoardPainter::PiecesFromBehind(const BoardView& view, const QRect& part) const {
    std::vector<PieceCode> pieces;
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
            const PieceCode code = CodeOf(colour, piece);
            if (code != view.inAir && PieceArea(view, code).intersects(part)) pieces.push_back(code);
        }
    }
    std::stable_sort(pieces.begin(), pieces.end(), [&](PieceCode one, PieceCode other) {
        return std::tuple(view.at[one].y(), view.at[one].x()) <
               std::tuple(view.at[other].y(), view.at[other].x());
    });
    return pieces;
}

void BoardPainter::PaintHouse(QPainter& painter, const BoardView& view, const Settings& settings,
                              Colour colour, const QRect& part) {
    const QRect house = HouseArea(colour), seen = house & part;
    if (!IsTakingPart(settings, colour)) {
        painter.drawPixmap(seen.topLeft(), Lid(colour), seen.translated(-house.topLeft()));
        return;
    }
    const bool lit = view.onTurn == colour;
    if (lit) painter.drawPixmap(seen.topLeft(), Lit(colour), seen.translated(-house.topLeft()));
    if (DeviceArea(layout_.NamePlate(colour)).intersects(part)) {
        PaintName(painter, QString::fromStdString(Trimmed(settings.PlayerName[colour])), colour, lit);
    }
    if (view.tray[colour].winner) PaintLaurel(painter, colour);
}

// What looks the same in many frames is drawn once per screen and copied from then on. `name` is
// the key of the cache: it must tell everything that the drawing depends on except the screen.
const QPixmap& BoardPainter::CachedPixmap(const QString& name, QSize size,
                                          const std::function<void(QPainter&)>& draw) {
    QPixmap& pixmap = cache_[name];
    if (!pixmap.isNull()) return pixmap;
    pixmap = QPixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    draw(painter);
    return pixmap;
}

// The frame's shadow lies on the lid, too.
const QPixmap& BoardPainter::Lid(Colour colour) {
    const QSize size = HouseArea(colour).size();
    return CachedPixmap(QStringLiteral("lid %1").arg(colour), size, [&](QPainter& lid) {
        const Box house = layout_.House(colour);
        const double scale = boardCell / layout_.Cell;
        const QRectF part(QPointF(house.x - layout_.Margin, house.y - layout_.Margin) * scale,
                          QSizeF(house.width, house.height) * scale);
        lid.drawPixmap(QPoint(), artwork_.Pixmap(QStringLiteral("lid_%1").arg(colour), size));
        lid.drawPixmap(QPoint(), artwork_.PixmapOfPart("board_print", part, size));
    });
}

// The house under a lamp that hangs above and left of its middle: it shines on the colour, its own
// warm white shows on the lacquer, and the brass string along the edge glows.
const QPixmap& BoardPainter::Lit(Colour colour) {
    const QRect house = HouseArea(colour);
    return CachedPixmap(QStringLiteral("lit %1").arg(colour), house.size(), [&](QPainter& lamp) {
        lamp.drawPixmap(QPoint(), Pic_TableroVacio, house);
        QRadialGradient light(QPointF(0.44, 0.4) * house.width(), 0.95 * house.width());
        const auto shine = [&](QPainter::CompositionMode mode, const QColor& white) {
            for (const double far : {0.0, 0.15, 0.3, 0.45, 0.6, 0.8, 1.0}) {
                const double left = (1 + std::cos(M_PI * far)) / 2;
                light.setColorAt(far, QColor(qRound(white.red() * left), qRound(white.green() * left),
                                             qRound(white.blue() * left)));
            }
            lamp.setCompositionMode(mode);
            lamp.fillRect(QRectF(QPointF(), house.size()), light);
        };
        // Yellow is light already: more would make it as pure as the yellow squares.
        const bool isYellow = colour == 1;
        shine(QPainter::CompositionMode_ColorDodge, isYellow ? QColor(58, 54, 22) : QColor(112, 96, 76));
        shine(QPainter::CompositionMode_Screen, isYellow ? QColor(40, 46, 24) : QColor(34, 28, 18));
        lamp.setCompositionMode(QPainter::CompositionMode_SourceOver);
        const double unit = house.width() / houseSide, edge = stringFromEdge * unit;
        for (const auto& [width, alpha] :
             {std::pair(9.0, 0.07), {7.0, 0.09}, {5.2, 0.12}, {3.6, 0.2}, {2.4, 0.3}, {1.4, 1.0}}) {
            lamp.setPen(QPen(WithAlpha(palette::Light, alpha), width * unit));
            lamp.drawRect(QRectF(QPointF(), house.size()).adjusted(edge, edge, -edge, -edge));
        }
    });
}

// Long names are set smaller until they fit the plate.
void BoardPainter::PaintName(QPainter& painter, const QString& name, Colour colour, bool lit) {
    const double unit = layout_.Unit * layout_.Cell / boardCell;
    const QRectF plate = DeviceF(layout_.NamePlate(colour));
    QFont font = DisplayFont((lit ? 19.5 : 18) * unit, name);
    const double room = plate.width() - 12 * unit;
    const auto isTooWide = [&] {
        const QFontMetricsF metrics(font);
        return std::max(metrics.horizontalAdvance(name), metrics.boundingRect(name).width()) > room;
    };
    const auto isTooHigh = [&] {
        return QFontMetricsF(font).tightBoundingRect(name).height() > plate.height() - 4;
    };
    while (font.pixelSize() > SmallestFont && (isTooWide() || isTooHigh()))
        font.setPixelSize(font.pixelSize() - 1);
    painter.setFont(font);
    painter.setPen(palette::Ink);
    painter.drawText(plate, Qt::AlignCenter,
                     isTooWide() ? QFontMetricsF(font).elidedText(name, Qt::ElideRight, room) : name);
}

void BoardPainter::PaintTray(QPainter& painter, const BoardView& view, Colour colour) {
    const BoardView::Tray& tray = view.tray[colour];
    painter.setOpacity(tray.opacity);
    if (tray.face != 0) PaintDie(painter, tray, colour);
    if (tray.bonus != 0) PaintBonus(painter, tray.bonus, PaintToken(painter, colour));
    if (tray.winner) {
        const double side = layout_.DieBox(colour).width * dieOfTray * layout_.Unit;
        PaintCentred(painter, artwork_.Pixmap("medal", SideBySide(side)),
                     DeviceF(layout_.DieBox(colour)).center());
    }
    painter.setOpacity(1);
}

void BoardPainter::PaintDie(QPainter& painter, const BoardView::Tray& tray, Colour colour) {
    const double side = layout_.DieBox(colour).width * dieOfTray * layout_.Unit;
    const QString name = QStringLiteral("die_%1%2").arg(tray.ready ? "ready_" : "").arg(tray.face);
    const QPixmap pixmap = artwork_.Pixmap(name, SideBySide(side));
    if (tray.pose.tilt == 0 && tray.pose.size == 1) {
        PaintCentred(painter, pixmap, DiePlace(colour, tray.pose).center());
    } else {
        PaintTumblingDie(painter, pixmap, colour, tray.pose);
    }
}

// Draws the whole die into a pixmap of its own, even when only a part of it is painted: Qt resamples a
// clipped part to slightly different pixels. It does so in bands of 95 lines: Qt 6.4 hands a rotated
// drawing of 96 lines or more to its thread pool and waits for it, which costs more than the drawing.
// The pixmap's edge is transparent and needs no antialiasing. Only here are pixmaps resampled: the hint
// would take Qt off its fast way of copying all others.
void BoardPainter::PaintTumblingDie(QPainter& painter, const QPixmap& pixmap, Colour colour,
                                    const BoardView::DiePose& pose) {
    constexpr int lines = 95;
    const QRect area = DieArea(colour, pose);
    QPixmap die(area.size());
    die.fill(Qt::transparent);
    QPainter turned(&die);
    turned.setRenderHint(QPainter::SmoothPixmapTransform);
    for (int top = 0; top < die.height(); top += lines) {
        turned.resetTransform();
        turned.setClipRect(QRect(0, top, die.width(), lines));
        turned.translate(DiePlace(colour, pose).center() - area.topLeft());
        turned.rotate(pose.tilt);
        turned.scale(pose.size, pose.size);
        turned.drawPixmap(QPointF(pixmap.width(), pixmap.height()) / -2, pixmap);
    }
    painter.drawPixmap(area.topLeft(), die);
}

// A token lies where the die does. Returns its place, with the brush and the pen for what stands on it.
QRectF BoardPainter::PaintToken(QPainter& painter, Colour colour) {
    const double unit = layout_.Unit * layout_.Cell / boardCell;
    QRectF token(QPointF(), QSizeF(44, 44) * unit);
    token.moveCenter(DeviceF(layout_.DieBox(colour)).center());
    painter.setPen(QPen(palette::DarkWood, 1.5 * unit));
    painter.setBrush(palette::Light);
    painter.drawEllipse(token);
    painter.setBrush(palette::Brass);
    painter.setPen(QPen(palette::Ink, unit));
    return token;
}

void BoardPainter::PaintBonus(QPainter& painter, Short squares, const QRectF& token) {
    painter.setFont(TextFont(token.height() * 18 / 44, QFont::Bold));
    painter.drawText(token, Qt::AlignCenter, QStringLiteral("+%1").arg(squares));
}

// A ring between light and dark edges is seen on every colour of the board. Radius and width are in the
// units of a piece's drawing, so that rings grow with the pieces.
void BoardPainter::PaintRing(QPainter& painter, QPointF centre, double radius, double width,
                             const QColor& colour) {
    const double scale = PieceUnit(layout_);
    const QRect piece = PieceDrawing(layout_, centre);
    const int beyond = qCeil((radius + width / 2 + ringEdge) * scale - piece.width() / 2.0) + 1;
    const QRect place = piece.adjusted(-beyond, -beyond, beyond, beyond);
    const QString name = QStringLiteral("ring %1 %2 %3").arg(radius).arg(width).arg(colour.rgba());
    painter.drawPixmap(place.topLeft(), CachedPixmap(name, place.size(), [&](QPainter& ring) {
                           const QPointF middle = QPointF(place.width(), place.height()) / 2;
                           for (const auto& [tone, beside] :
                                {std::pair(palette::DarkWood, ringEdge),
                                 std::pair(palette::Light, ringEdge / 2), std::pair(colour, 0.0)}) {
                               ring.setPen(QPen(tone, (width + 2 * beside) * scale));
                               ring.drawEllipse(middle, radius * scale, radius * scale);
                           }
                       }));
}

// Dark beyond the ring, so that it stands out from light squares and yellow ones, too.
void BoardPainter::PaintGlow(QPainter& painter, QPointF centre) {
    const QRect place = PieceDrawing(layout_, centre);
    painter.drawPixmap(place.topLeft(), CachedPixmap("glow", place.size(), [&](QPainter& glow) {
                           const QPointF middle = QPointF(place.width(), place.height()) / 2;
                           const double reach = glowReach * PieceUnit(layout_);
                           QRadialGradient fading(middle, reach);
                           fading.setColorAt(0.8, WithAlpha(palette::DarkWood, 0.75));
                           fading.setColorAt(1, WithAlpha(palette::DarkWood, 0));
                           glow.setPen(Qt::NoPen);
                           glow.setBrush(fading);
                           glow.drawEllipse(middle, reach, reach);
                       }));
}

// The dots that a piece on its way has reached are gone.
void BoardPainter::PaintShownMove(QPainter& painter, const BoardView& view,
                                  const BoardView::ShownMove& move, const QRect& part) {
    const std::vector<QPointF> path = PathOf(layout_, move);
    if (path.empty()) return;
    const int steps = view.counted - (move.from == 0 ? 0 : 1);  // the exit is not counted
    const int reached = move.piece == view.inAir ? std::max(steps, 0) : 0;
    for (std::size_t step = static_cast<std::size_t>(reached); step + 1 < path.size(); ++step) {
        if (PieceArea(path[step]).intersects(part))
            PaintRing(painter, path[step], dotOnThePath.radius, dotOnThePath.width, palette::Mark);
    }
    PaintRing(painter, path.back(), targetOfMove.radius, targetOfMove.width, palette::Mark);
}

// A dashed ring where each piece that can be picked would stand: the way itself is shown for the piece
// under the cursor alone.
void BoardPainter::PaintChoices(QPainter& painter, const BoardView& view,
                                const BoardView::ShownMove& shown, const QRect& part) {
    // The shown move has a ring of its own there, and two pieces of a square go to the same place.
    std::vector<QPointF> ringed{shown.place};
    for (const BoardView::ShownMove& move : view.choices) {
        const bool isRinged = std::find(ringed.begin(), ringed.end(), move.place) != ringed.end();
        if (move.to == 0 || isRinged || !PieceArea(move.place).intersects(part)) continue;
        ringed.push_back(move.place);
        const QRect place = PieceDrawing(layout_, move.place);
        painter.drawPixmap(place.topLeft(), Choice(place.size()));
    }
}

// Light dashes with dark edges all around, and within them a light that fades to the middle.
const QPixmap& BoardPainter::Choice(QSize size) {
    return CachedPixmap("choice", size, [&](QPainter& ring) {
        const QPointF middle = QPointF(size.width(), size.height()) / 2;
        const double unit = PieceUnit(layout_);
        QRadialGradient light(middle, choice.radius * unit);
        light.setColorAt(0.3, WithAlpha(palette::Mark, 0));
        light.setColorAt(1, WithAlpha(palette::Mark, choiceLight));
        ring.setBrush(light);
        for (const auto& [colour, width, share] :
             {std::tuple(palette::DarkWood, choice.width + 1.4, 0.68),
              std::tuple(palette::Mark, choice.width, 0.56)}) {
            QPen pen(colour, width * unit, Qt::CustomDashLine, Qt::FlatCap);
            const double dash = 2 * M_PI * choice.radius / width / choiceDashes;  // in widths of the pen
            pen.setDashPattern({share * dash, (1 - share) * dash});
            pen.setDashOffset((1 + share) / 2 * dash);  // the ellipse begins in a gap
            ring.setPen(pen);
            ring.drawEllipse(middle, choice.radius * unit, choice.radius * unit);
            ring.setBrush(Qt::NoBrush);
        }
    });
}

// The piece of the shown move has the colour of its way; those that may move else have a
// white ring within, which stands out from yellow pieces and squares.
void BoardPainter::PaintRingOf(QPainter& painter, const BoardView& view,
                               const BoardView::ShownMove& shown, PieceCode code) {
    const bool isShown = shown.piece == code && shown.to != 0;
    if (!isShown && !view.IsMovable(code)) return;
    const RingShape& shape = isShown ? advisedPiece : movablePiece;
    PaintGlow(painter, view.at[code]);
    PaintRing(painter, view.at[code], aroundMovable.radius, aroundMovable.width, palette::Mark);
    PaintRing(painter, view.at[code], shape.radius, shape.width,
              isShown ? palette::Mark : QColor(Qt::white));
}

// The piece marked by the keyboard lies between four corners, dark as no ring is, and above the piece
// that may lie half on this one.
void BoardPainter::PaintFrame(QPainter& painter, QPointF centre) {
    constexpr double near = frameReach - frameLeg, far = frameReach;
    const double scale = PieceUnit(layout_);
    painter.save();
    painter.translate(QRectF(PieceDrawing(layout_, centre)).center());
    painter.scale(scale, scale);
    for (const QPen& pen : {QPen(palette::Light, 2 * frameWidth), QPen(palette::DarkWood, frameWidth)}) {
        painter.setPen(pen);
        for (int corner = 0; corner < 4; ++corner) {
            painter.drawPolyline(QPolygonF({{near, far}, {far, far}, {far, near}}));
            painter.rotate(90);
        }
    }
    painter.restore();
}

QRect BoardPainter::MoveArea(const BoardView::ShownMove& move) const {
    QRect area;
    for (const QPointF& point : PathOf(layout_, move)) area |= PieceArea(point);
    return area;
}

// ------------------------------------------------------------------------------ the last move

// From square to square, in layout pixels. A piece that came out of its box leaves no trace in its
// house, and one that was shifted by hand or sent back none at all.
std::vector<QPointF> BoardPainter::TraceOf(const BoardView& view) const {
    const BoardView::LastMove& move = view.lastMove;
    if (move.piece == 0 || !move.walked) return {};
    std::vector<QPointF> trace;
    if (move.from != 0) trace.push_back(AsPointF(layout_.SquarePosition(move.from)));
    for (const QPointF& at : PathOf(layout_, {move.piece, move.from, move.to, view.at[move.piece]}))
        trace.push_back(at);
    return trace;
}

// The trace in straight strips, of which there are few.
std::vector<QRect> BoardPainter::LastMoveAreas(const BoardView& view) const {
    const BoardView::LastMove& move = view.lastMove;
    if (move.piece == 0) return {};
    std::vector<QRect> areas{PieceArea(view.at[move.piece])};
    for (const PieceCode piece : {move.captured, move.before})
        if (piece != 0) areas.push_back(PieceArea(view.at[piece]));
    areas.push_back(PieceArea(PlaceLeft(layout_, move)));
    QRect before;
    for (const QPointF& at : TraceOf(view)) {
        const QRect piece = PieceArea(at);
        const QRect strip = areas.back() | piece;
        if (std::min(strip.width(), strip.height()) <= piece.width() + 2) {
            areas.back() = strip;
        } else {
            areas.push_back(before | piece);
        }
        before = piece;
    }
    return areas;
}

// A ring where the piece stood and footprints, larger and larger, lead to a ring around it, all in its
// colour; rings around the piece that it has sent home and around one that came out with it.
void BoardPainter::PaintLastMove(QPainter& painter, const BoardView& view, const QRect& part) {
    const BoardView::LastMove& move = view.lastMove;
    const std::vector<QRect> areas = LastMoveAreas(view);
    const auto isSeen = [&](const QRect& area) { return area.intersects(part); };
    if (std::none_of(areas.begin(), areas.end(), isSeen)) return;
    const QColor colour = palette::PlayerMark[ColourOf(move.piece)];
    const std::vector<QPointF> trace = TraceOf(view);
    for (std::size_t step = 1; step + 1 < trace.size(); ++step) {
        const double done = static_cast<double>(step) / static_cast<double>(trace.size() - 1);
        const double radius = firstFootprint + (lastFootprint - firstFootprint) * done;
        PaintRing(painter, trace[step], radius / 2, radius, colour);
    }
    PaintRing(painter, PlaceLeft(layout_, move), placeLeft.radius, placeLeft.width, colour);
    for (const PieceCode piece : {move.piece, move.before, move.captured})
        if (piece != 0) PaintRing(painter, view.at[piece], movedPiece.radius, movedPiece.width, colour);
}

// --------------------------------------------------------------------- the sign at a waiting die

namespace {

constexpr double handSide = 50;  // in layout pixels of the largest board
constexpr double handTravel = 7;
constexpr int handTaps = 3;
const QPointF handTip(12.3 / 32, 3.0 / 32);  // of its drawing
const QPointF handPlace(20, 18);             // where the tip rests, from the middle of the tray

constexpr double invitationReach = 0.4;  // of the light around the new-game button, in sides of it
constexpr std::size_t newGame = 1;

}  // namespace

QRect BoardPainter::SignArea(Colour colour) const {
    if (colour == BoardView::NewGameSign) {
        const Box& button = layout_.Button[newGame];
        return DeviceArea(button, invitationReach * button.width);
    }
    const double unit = layout_.Cell / boardCell;
    const int reach = qCeil((handSide + handTravel + handPlace.x()) * unit);
    const Point middle = layout_.DieBox(colour).Centre();
    return DeviceArea({ToShort(middle.x - reach), ToShort(middle.y - reach), ToShort(2L * reach),
                       ToShort(2L * reach)});
}

// Over the cup of the background, in warm light.
void BoardPainter::PaintCup(QPainter& painter, const QRect& part) {
    const QRect area = DeviceArea(layout_.Cup);
    if (!area.intersects(part)) return;
    painter.drawPixmap(area.topLeft(), CachedPixmap("cup", area.size(), [&](QPainter& cup) {
                           const QPixmap drawn = artwork_.Pixmap("panel_cup", area.size());
                           cup.drawPixmap(0, 0, WarmLit(drawn));
                       }));
}

// A warm light behind the button, which swells a few times and then stays, and a frame around it.
void BoardPainter::PaintInvitation(QPainter& painter, double progress, const QRect& part) {
    const QRect area = SignArea(BoardView::NewGameSign);
    if (!area.intersects(part)) return;
    const Box& button = layout_.Button[newGame];
    const double unit = layout_.Unit * button.width / 64;  // of the button's drawing
    const double swell = std::abs(std::cos(handTaps * M_PI * progress));
    painter.setOpacity(0.45 + 0.55 * swell);
    painter.drawPixmap(area.topLeft(), CachedPixmap("invitation", area.size(), [&](QPainter& glow) {
                           const QPointF middle = QRectF(QPointF(), area.size()).center();
                           QRadialGradient light(middle, area.width() / 2.0);
                           light.setColorAt(0.4, WithAlpha(palette::Light, 0.9));
                           light.setColorAt(0.62, WithAlpha(palette::Mark, 0.5));
                           light.setColorAt(1, WithAlpha(palette::Mark, 0));
                           glow.fillRect(QRectF(QPointF(), area.size()), light);
                       }));
    painter.setOpacity(1);
    const QRectF frame = DeviceF(button).adjusted(unit, unit, -2.5 * unit, -2.5 * unit);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette::Mark, 3.2 * unit));
    painter.drawRoundedRect(frame, 12 * unit, 12 * unit);
}

// The tray has a frame of light, and a hand taps on the die a few times and then rests there.
void BoardPainter::PaintSign(QPainter& painter, const BoardView& view, const QRect& part) {
    if (view.sign == 0 || !SignArea(view.sign).intersects(part)) return;
    const double unit = layout_.Unit * layout_.Cell / boardCell;
    const QRectF tray =
        DeviceF(layout_.DieBox(view.sign)).adjusted(-2 * unit, -2 * unit, 2 * unit, 2 * unit);
    painter.setBrush(Qt::NoBrush);
    QLinearGradient light(tray.topLeft(), tray.bottomRight());
    light.setColorAt(0, Qt::white);
    light.setColorAt(0.5, palette::Light);
    light.setColorAt(1, palette::Mark);
    for (const auto& [brush, width] :
         {std::pair(QBrush(WithAlpha(palette::Mark, 0.25)), 14.0),
          std::pair(QBrush(WithAlpha(palette::Mark, 0.5)), 10.0),
          std::pair(QBrush(palette::DarkWood), 6.0), std::pair(QBrush(light), 4.4)}) {
        painter.setPen(QPen(brush, width * unit));
        painter.drawRoundedRect(tray, 8 * unit, 8 * unit);
    }
    const double away = handTravel * std::abs(std::sin(handTaps * M_PI * view.tapping));
    const QPixmap hand = artwork_.Pixmap("cursors/ManoIndice", SideBySide(handSide * unit));
    const QPointF tip = tray.center() + (handPlace + QPointF(away, away)) * unit;
    painter.drawPixmap((tip - handTip * handSide * unit).toPoint(), hand);
}

// Resampling a moving piece for every frame would take most of the frame's time: instead it is drawn
// once for each of the few sizes that it grows through, two pixels apart so that its middle stays in
// place.
void BoardPainter::PaintPiece(QPainter& painter, const BoardView& view, PieceCode code) {
    if (!view.present[code]) return;
    const double height = view.height[code];
    if (height > 0) PaintGroundShadow(painter, Device(view.at[code]), height);
    const QRect ground = PieceDrawing(layout_, view.at[code]);
    const int growth = qRound(ground.width() * (PieceScale(height) - 1) / 2);
    const QRect place = ground.adjusted(-growth, -growth, growth, growth);
    painter.drawPixmap(place.topLeft() - QPoint(0, qRound(height * layout_.Unit)),
                       artwork_.Pixmap(QStringLiteral("piece_%1").arg(ColourOf(code)), place.size()));
}

// The higher a piece, the further its shadow from under it, and the fainter.
void BoardPainter::PaintGroundShadow(QPainter& painter, QPointF at, double height) {
    const double far = std::min(height / layout_.PieceSize, 2.0);
    const QPointF beside = QPointF(0.1, 0.12) * layout_.PieceSize * layout_.Unit * (1 + far);
    painter.setOpacity(1 - 0.33 * far);
    PaintCentred(painter, artwork_.Pixmap("piece_shadow", PieceDrawing(layout_, {}).size()),
                 at + beside);
    painter.setOpacity(1);
}

// The squares walked so far are counted beside the piece.
QRectF BoardPainter::CountArea(const BoardView& view) const {
    const double side = 0.72 * layout_.PieceSize * layout_.Unit;
    const QPointF beside = QPointF(0.62, -0.62) * layout_.PieceSize * layout_.Unit;
    QRectF area(QPointF(), QSizeF(side, side));
    area.moveCenter(Device(view.at[view.inAir]) - QPointF(0, view.height[view.inAir] * layout_.Unit) +
                    beside);
    return area;
}

void BoardPainter::PaintCount(QPainter& painter, const BoardView& view) {
    const QRectF area = CountArea(view);
    const double side = area.width(), edge = side / 14;
    const QString number = QString::number(view.counted);
    PaintCentred(painter,
                 CachedPixmap("count " + number, SideBySide(side + 2 * edge),
                              [&](QPainter& badge) {
                                  const QRectF disc(edge, edge, side, side);
                                  badge.setPen(QPen(palette::DarkWood, edge));
                                  badge.setBrush(palette::Light);
                                  badge.drawEllipse(disc);
                                  badge.setFont(TextFont(side * 0.62, QFont::Bold));
                                  badge.setPen(palette::Ink);
                                  badge.drawText(disc, Qt::AlignCenter, number);
                              }),
                 area.center());
}

// ------------------------------------------------------------------------------ the winner

namespace {

constexpr double laurelSide = 172;  // in layout pixels of the largest board
constexpr double flakeLength = 14;
constexpr double flakeWidth = 8.5;
constexpr double flakeShadow = 2.4;  // how far to the lower right

}  // namespace

// Around the tray, on the edge of the ivory field.
void BoardPainter::PaintLaurel(QPainter& painter, Colour colour) {
    const double side = laurelSide * layout_.Cell / boardCell * layout_.Unit;
    PaintCentred(painter, artwork_.Pixmap("laurel", SideBySide(side)),
                 DeviceF(layout_.DieBox(colour)).center());
}

QRect BoardPainter::FlakeArea(const BoardView::Flake& flake) const {
    const int side = qCeil((flakeLength + flakeShadow) * layout_.Cell / boardCell * layout_.Unit) + 2;
    QRect area(0, 0, side, side);
    area.moveCenter(Device(flake.at).toPoint());
    const double frame = 16 * layout_.Cell / boardCell;
    const Short board = ToShort(21L * layout_.Cell);
    const Box squares{layout_.Margin, layout_.Margin, board, board};
    return DeviceArea(squares, frame).contains(area) ? area : QRect();
}

// In the winner's colour, gold and ivory; the back is in the shade. Each of the few ways in which a
// flake may lie is drawn once.
void BoardPainter::PaintFlake(QPainter& painter, const QColor& paper, const BoardView::Flake& flake) {
    constexpr double turns = 15, widths = 0.25;  // from one way to the next
    const QColor colour = flake.width < 0 ? paper.darker(125) : paper;
    const int turn = qRound(flake.turn / turns),
              width = std::max(qRound(std::abs(flake.width) / widths), 1);
    const QRect area = FlakeArea(flake);
    const double unit = layout_.Cell / boardCell * layout_.Unit;
    const auto draw = [&](QPainter& bit) {
        QRectF shape(QPointF(), QSizeF(width * widths * flakeLength, flakeWidth) * unit);
        shape.moveCenter({});
        for (const auto& [fill, below] :
             {std::pair(QColor(0, 0, 0, 80), flakeShadow / 2), std::pair(colour, -flakeShadow / 2)}) {
            bit.resetTransform();
            bit.translate(QPointF(area.width(), area.height()) / 2 + QPointF(below, below) * unit);
            bit.rotate(turn * turns);
            bit.fillRect(shape, fill);
        }
    };
    const QString name = QStringLiteral("flake %1 %2 %3").arg(colour.rgba()).arg(turn).arg(width);
    painter.setOpacity(flake.opacity);
    painter.drawPixmap(area.topLeft(), CachedPixmap(name, area.size(), draw));
}

void BoardPainter::PaintConfetti(QPainter& painter, const BoardView::Confetti& confetti,
                                 const QRect& part) {
    const QColor papers[] = {palette::PlayerMark[confetti.winner], palette::Gold, palette::Paper};
    std::size_t number = 0;
    for (const BoardView::Flake& flake : confetti.flakes) {
        const QColor& paper = papers[number++ % std::size(papers)];
        if (FlakeArea(flake).intersects(part)) PaintFlake(painter, paper, flake);
    }
    painter.setOpacity(1);
}

// ------------------------------------------------------------------------------ rings of light

// The ring spreads fast at first and slows down while it fades.
// Qt would work out the whole circle for a part that it does not touch.
void BoardPainter::PaintPulse(QPainter& painter, const BoardView::Pulse& pulse, const QRect& part) {
    const double grown = 1 - (1 - pulse.progress) * (1 - pulse.progress);
    const double radius = (0.3 + 0.7 * grown) * pulse.reach * layout_.Unit;
    const double fade = 1 - pulse.progress;
    const QPointF off = QRectF(part).center() - Device(pulse.at);
    const double around = std::hypot(part.width(), part.height()) / 2 + 4 * layout_.Unit;
    if (std::abs(std::hypot(off.x(), off.y()) - radius) > around) return;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(WithAlpha(palette::Mark, 0.5 * fade), 6 * fade * layout_.Unit));
    painter.drawEllipse(Device(pulse.at), radius, radius);
    painter.setPen(QPen(WithAlpha(palette::Light, fade), 2.5 * fade * layout_.Unit));
    painter.drawEllipse(Device(pulse.at), radius, radius);
}

}  // namespace zorva
