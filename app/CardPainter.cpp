#include "app/CardPainter.h"

#include <QPainter>
#include <QtMath>
#include <algorithm>
#include <cmath>

#include "app/Artwork.h"
#include "app/Fonts.h"
#include "app/Layout.h"
#include "app/Palette.h"
#include "core/Board.h"

namespace zorva {
namespace {

// Measures in layout pixels.
constexpr double around = 8;  // of shadow or light
constexpr double corner = 7;
constexpr double padding = 11;
constexpr double largestScale = 1.3;  // of what is written on a large card

QRectF OnDevice(const Layout& layout, const Box& box) {
    return {layout.DeviceLeft + box.x * layout.Unit, layout.DeviceTop + box.y * layout.Unit,
            box.width * layout.Unit, box.height * layout.Unit};
}

QRect AreaAround(const Layout& layout, const Box& box) {
    const double edge = around * layout.Unit;
    return OnDevice(layout, box).adjusted(-edge, -edge, edge, edge).toAlignedRect();
}

/// What a plate is made of: `width` is that of its edge, in layout pixels.
struct PlateLook {
    bool lit;
    QColor above, below, edge;
    double width;
    bool framed = false;  ///< in brass
};

/// Ivory where something goes on, else dark leather.
PlateLook CardLook(bool lit) {
    if (lit) return {true, {0xff, 0xf3, 0xd2}, {0xf3, 0xdf, 0xb2}, palette::Mark, 1.6};
    return {false, {0x5c, 0x39, 0x20}, {0x3e, 0x24, 0x12}, {0xb0, 0x8a, 0x52}, 0.9};
}

/// Enamel in the colour of the player who is asked, in a frame of brass.
PlateLook EnamelLook(Colour who) {
    const auto& [above, below] = palette::Enamel[who];
    return {true, above, below, palette::Light, 0, true};
}

/// Paints one box, from its corner and in layout pixels, of which each is `scale` times as large.
class BoxPainter {
public:
    BoxPainter(QPainter& painter, const QRectF& device, double unit, double scale)
        : painter_(painter), size_(device.size() / (unit * scale)), scale_(scale), unit_(unit * scale) {
        painter.save();
        painter.translate(device.topLeft());
    }
    ~BoxPainter() { painter_.restore(); }
    BoxPainter(const BoxPainter&) = delete;
    BoxPainter& operator=(const BoxPainter&) = delete;

    QRectF Whole() const { return {QPointF(), size_}; }
    double Width() const { return size_.width(); }
    double Height() const { return size_.height(); }
    QPainter& Painter() { return painter_; }
    QRectF Device(const QRectF& area) const { return {area.topLeft() * unit_, area.size() * unit_}; }

    void Round(const QRectF& area, double radius, const QBrush& fill, const QPen& edge = Qt::NoPen) {
        QPen pen(edge);
        pen.setWidthF(edge.widthF() * unit_);
        painter_.setPen(pen);
        painter_.setBrush(fill);
        painter_.drawRoundedRect(Device(area), radius * unit_, radius * unit_);
    }

    /// Set smaller until it fits; the end of what is too long even then is cut off.
    void Text(const QRectF& area, int flags, const QString& text, double size, QFont::Weight weight,
              const QColor& colour) {
        Text(area, flags, text, TextFont(size * unit_, weight), colour);
    }
    void Text(const QRectF& area, int flags, const QString& text, QFont font, const QColor& colour) {
        const QRectF place = Device(area);
        const auto fits = [&](const QString& shown) {
            const QRectF needed = QFontMetricsF(font).boundingRect(place, flags, shown);
            return place.adjusted(-1, -1, 1, 1).contains(needed);
        };
        while (font.pixelSize() > SmallestFont && !fits(text)) font.setPixelSize(font.pixelSize() - 1);
        QString shown = text;
        for (qsizetype kept = text.size(); kept > 0 && !fits(shown); --kept)
            shown = text.first(kept).trimmed() + QStringLiteral("…");
        painter_.setFont(font);
        painter_.setPen(colour);
        painter_.drawText(place, flags, shown);
    }

    /// The shadow or the light that lies around the box: faint layers, a device pixel from one to the
    /// next, so that it fades without a step.
    void Halo(QColor colour, double strength, QPointF offset) {
        const double reach = (around - 1.5 - std::max(offset.x(), offset.y())) / scale_;
        const int layers = qCeil(reach * unit_);
        colour.setAlphaF(static_cast<float>(1 - std::pow(1 - strength, 1.0 / layers)));
        for (int layer = layers; layer > 0; --layer) {
            const double edge = layer / unit_;
            Round(Whole().adjusted(-edge, -edge, edge, edge).translated(offset / scale_), corner + edge,
                  colour);
        }
    }

    /// A plate in its shadow or in the light around it.
    void Plate(const PlateLook& look) {
        if (look.lit) {
            Halo(QColor(0xff, 0xd0, 0x80), 0.3, {});
        } else {
            Halo(Qt::black, 0.62, {2.4, 3});
        }
        QLinearGradient face(0, 0, 0, Height() * unit_);
        face.setColorAt(0, look.above);
        face.setColorAt(1, look.below);
        Round(Whole(), corner, face, QPen(palette::DarkWood, 1.4));
        Round(Whole().adjusted(2.5, 2.5, -2.5, -2.5), corner - 2, Qt::NoBrush,
              QPen(look.edge, look.width));
        if (look.framed) Frame();
    }

    /// That hold a plate in its corners.
    void Screws() {
        constexpr double screw = 5, fromEdge = 7.5;
        for (const double x : {fromEdge, Width() - fromEdge - screw})
            for (const double y : {fromEdge, Height() - fromEdge - screw})
                Round({x, y, screw, screw}, screw / 2, palette::Brass,
                      QPen(QColor(0x3a, 0x22, 0x0a), 0.8));
    }

private:
    /// Of brass, which the lamp lights from above.
    void Frame() {
        QLinearGradient brass(0, 0, 0, Height() * unit_);
        brass.setColorAt(0, QColor(0xff, 0xec, 0xb4));
        brass.setColorAt(0.5, palette::Brass);
        brass.setColorAt(1, QColor(0x8a, 0x64, 0x24));
        Round(Whole().adjusted(2.6, 2.6, -2.6, -2.6), corner - 2, Qt::NoBrush, QPen(brass, 3.6));
        Round(Whole().adjusted(4.8, 4.8, -4.8, -4.8), corner - 4, Qt::NoBrush,
              QPen(QColor(0x2a, 0x16, 0x06, 0xb0), 0.9));
    }

    QPainter& painter_;
    QSizeF size_;
    double scale_;
    double unit_;
};

// The plate of a box with the shadow or the light around it, drawn once for each size.
void PaintPlate(QPainter& painter, const PixmapCache& cache, const Layout& layout, const Box& box,
                double scale, const PlateLook& look) {
    const QRect area = AreaAround(layout, box);
    const QRectF inArea = OnDevice(layout, box).translated(-area.topLeft());
    const QString name =
        QStringLiteral("plate %1 %2 %3").arg(look.above.rgb()).arg(inArea.x()).arg(inArea.y());
    const QString sized = name + QStringLiteral(" %1 %2").arg(box.width).arg(box.height);
    painter.drawPixmap(area.topLeft(), cache(sized, area.size(), [&](QPainter& plate) {
                           BoxPainter(plate, inArea, layout.Unit, scale).Plate(look);
                       }));
}

QColor TextColour(bool lit) {
    return lit ? palette::Ink : QColor(0xf6, 0xe9, 0xcc);
}

QColor FaintText(bool lit) {
    return lit ? QColor(0x5c, 0x44, 0x2c) : QColor(0xde, 0xca, 0xa2);
}

// A number stays on one line with the words beside it.
QString WithNumbersKept(QString text) {
    for (qsizetype at = 1; at + 1 < text.size(); ++at) {
        if (text[at] == ' ' && (text[at - 1].isDigit() || text[at + 1].isDigit()))
            text[at] = QChar::Nbsp;
    }
    return text;
}

// How much of its way a colour has walked, and how many squares are left.
void PaintWay(BoxPainter& box, const BoardView::Card& card, double top) {
    const QRectF bar(padding, top, box.Width() - 2 * padding, 9);
    const QColor groove = card.lit ? QColor(0xcd, 0xb4, 0x83) : QColor(0x12, 0x0a, 0x05);
    box.Round(bar, 4.5, groove,
              QPen(card.lit ? QColor(0x8d, 0x71, 0x45) : QColor(0x5e, 0x47, 0x2d), 0.9));
    const double walked = (bar.width() - 2) * (StepsOfColour - card.toGo) / StepsOfColour;
    if (walked < 1) return;
    box.Painter().save();
    box.Painter().setClipRect(box.Device(QRectF(bar.left() + 1, bar.top(), walked, bar.height())),
                              Qt::IntersectClip);
    box.Round(bar.adjusted(1, 1, -1, -1), 3.5, palette::PlayerMark[card.colour]);
    box.Painter().restore();
}

void PaintDrawing(BoxPainter& box, Artwork& artwork, const QString& name, const QRectF& place) {
    const QRectF device = box.Device(place);
    const QSize size = device.size().toSize();
    box.Painter().drawPixmap(device.topLeft().toPoint(), artwork.Pixmap(name, size));
}

// Four enamelled wells with the pieces at home. While there are none, words instead: empty wells look
// like the places of waiting pieces.
void PaintHome(BoxPainter& box, Artwork& artwork, const BoardView::Card& card, double top) {
    if (card.home == 0) {
        box.Text({padding, top - 2, 66, 17}, Qt::AlignVCenter | Qt::AlignLeft, "0 en casa", 13,
                 QFont::Normal, FaintText(card.lit));
        return;
    }
    constexpr double side = 13, step = 16, piece = side * 40 / 28;  // of which the body takes 28
    const auto& [above, below] = palette::Enamel[card.colour];
    box.Round({padding - 2, top - 2, 3 * step + side + 4, side + 4}, side / 2 + 2, below,
              QPen(card.lit ? QColor(0x8d, 0x71, 0x45) : QColor(0xb0, 0x8a, 0x52), 0.9));
    for (int number = 0; number < PiecesPerColour; ++number) {
        const QRectF well(padding + step * number, top, side, side);
        box.Round(well, side / 2, below.darker(card.colour == 1 ? 150 : 260), QPen(above, 0.8));
        if (number < card.home) {
            const double more = (piece - side) / 2;
            PaintDrawing(box, artwork, QStringLiteral("piece_%1").arg(card.colour),
                         well.adjusted(-more, -more, more, more));
        }
    }
}

void PaintCard(QPainter& painter, Artwork& artwork, const PixmapCache& cache, const Layout& layout,
               const Box& place, const BoardView::Card& card) {
    const double scale =
        std::clamp(std::min(place.width / 172.0, place.height / 146.0), 1.0, largestScale);
    const bool lit = card.lit;
    PaintPlate(painter, cache, layout, place, scale, CardLook(lit));
    BoxPainter box(painter, OnDevice(layout, place), layout.Unit, scale);
    const QColor text = TextColour(lit), faint = FaintText(lit);
    const double width = box.Width() - 2 * padding;
    const double spread = std::clamp((box.Height() - 112) / 34.0, 0.0, 1.0);  // of the rows
    // On a narrow card the kind of player needs the room below the piece, too.
    const bool isNarrow = box.Width() < 160;
    const double piece = isNarrow ? 32 : 38 + 4 * spread, beside = padding + piece - 6;
    const double kind = isNarrow ? padding : beside;
    PaintDrawing(box, artwork, QStringLiteral("piece_%1").arg(card.colour),
                 {padding - 6, (isNarrow ? 1 : 3) + 2 * spread, piece, piece});
    box.Text({beside, (isNarrow ? 4 : 5) + 2 * spread, box.Width() - beside - padding, 24},
             Qt::AlignVCenter | Qt::AlignLeft, card.name,
             DisplayFont(20 * layout.Unit * scale, card.name), text);
    box.Text({kind, 27 + (isNarrow ? 4 : 2) * spread, box.Width() - kind - padding, 15},
             Qt::AlignVCenter | Qt::AlignLeft, card.kind, 13, QFont::Normal, faint);
    PaintWay(box, card, 44 + 5 * spread);
    const double home = 57 + 9 * spread;
    PaintHome(box, artwork, card, home);
    box.Text({padding + 66, home - 2, width - 66, 17}, Qt::AlignVCenter | Qt::AlignRight,
             card.toGo == 0 ? QStringLiteral("en casa") : QStringLiteral("faltan %1").arg(card.toGo), 14,
             QFont::Bold, text);
    const double last = home + 18 + 4 * spread;
    const QRectF foot(4.5, last, box.Width() - 9, box.Height() - last - 4.5);
    if (!card.last.isEmpty() || !card.chance.isEmpty())
        box.Round(foot, corner - 3, lit ? QColor(0xa0, 0x6a, 0x20, 0x2c) : QColor(0, 0, 0, 0x48));
    const double side = card.won ? foot.height() - 4 : 0;  // of the laurel beside the text
    const QRectF laurel(box.Width() - padding - side, last + 2, side, side);
    if (card.won) PaintDrawing(box, artwork, "laurel", laurel);
    if (card.won)
        PaintDrawing(box, artwork, "medal", laurel.adjusted(side / 4, side / 4, -side / 4, -side / 4));
    const double chance = card.chance.isEmpty() ? 0 : 18;
    if (chance != 0) {
        box.Text({padding, foot.bottom() - chance - 1, width, chance}, Qt::AlignVCenter | Qt::AlignLeft,
                 card.chance, 13, QFont::Bold, faint);
    }
    const double die = card.die == 0 || isNarrow ? 0 : 30;
    if (die != 0)
        PaintDrawing(box, artwork, QStringLiteral("die_%1").arg(card.die),
                     {padding - 4, last + (foot.height() - chance - die) / 2, die, die});
    box.Text({padding + die, last, width - side - die, foot.height() - chance},
             Qt::AlignVCenter | Qt::AlignLeft | Qt::TextWordWrap, WithNumbersKept(card.last), 15,
             QFont::Normal, text);
}

// The first of two lines: the name of the player who is asked. Empty when there is one line.
QString HeadOf(const QString& what) {
    return what.left(std::max<qsizetype>(what.indexOf('\n'), 0));
}

QFont HeadFont(double size, const QString& head) {
    return DisplayFont(1.2 * size, head);
}

}  // namespace

QRect CardArea(const Layout& layout, std::size_t place) {
    return AreaAround(layout, layout.Card[place]);
}

QRect LineArea(const Layout& layout) {
    return AreaAround(layout, layout.Line);
}

void PaintCards(QPainter& painter, Artwork& artwork, const PixmapCache& cache, const Layout& layout,
                const BoardView& view, const QRect& part) {
    if (!layout.HasCards()) return;
    for (std::size_t place = 0; place < view.cards.size(); ++place) {
        if (CardArea(layout, place).intersects(part))
            PaintCard(painter, artwork, cache, layout, layout.Card[place], view.cards[place]);
    }
}

LineSizes LineSizesFor(const QString& what, const QString& more, QSizeF room, double unit) {
    const auto heightOf = [&](const QString& text, const QFont& font) {
        const QRectF endless(0, 0, room.width() * unit, 1e4);
        if (text.isEmpty()) return 0.0;
        return QFontMetricsF(font).boundingRect(endless, Qt::TextWordWrap, text).height() / unit;
    };
    constexpr double between = 3;
    const double least = std::max(11.0, 10 / unit);
    const QString head = HeadOf(what), task = what.mid(head.size());
    LineSizes sizes{std::min(20.0, room.width() / 7.5), more.isEmpty() ? least : std::max(13.0, least)};
    for (;;) {
        sizes.head = heightOf(head, HeadFont(sizes.what * unit, head));
        sizes.above = sizes.head + heightOf(task.trimmed(), TextFont(sizes.what * unit, QFont::Bold));
        sizes.below = heightOf(more, TextFont(sizes.more * unit));
        if (sizes.above + between + sizes.below <= room.height() || sizes.what <= least) return sizes;
        double& next = sizes.more > least ? sizes.more : sizes.what;
        next = std::max(least, next - 1);
    }
}

// Above what the game waits for; below, smaller, how to get on otherwise, or what was done last.
void PaintLine(QPainter& painter, const PixmapCache& cache, const Layout& layout, const BoardView& view,
               const QRect& part) {
    if (!LineArea(layout).intersects(part)) return;
    const bool isFlat = layout.Line.width > 8 * layout.Line.height;
    const double scale = isFlat ? largestScale : 1;
    const bool lit = view.line.waits, enamelled = lit && view.line.who != 0;
    PaintPlate(painter, cache, layout, layout.Line, scale,
               enamelled ? EnamelLook(view.line.who) : CardLook(lit));
    const QColor ink = enamelled ? palette::EnamelInk[view.line.who] : TextColour(lit);
    const QColor faint = enamelled ? ink : FaintText(lit);
    BoxPainter box(painter, OnDevice(layout, layout.Line), layout.Unit, scale);
    const QString more = WithNumbersKept(view.line.hint.isEmpty() ? view.latest : view.line.hint);
    const double unit = layout.Unit * scale;
    const bool below = !isFlat && !more.isEmpty();
    const double aside = enamelled && !below ? 12 : 8;  // from the screws
    const QRectF inside = box.Whole().adjusted(aside, 5, -aside, -5);
    if (enamelled && !below) box.Screws();  // else the lower text needs the corners
    const QString what = isFlat ? QString(view.line.what).replace('\n', ' ') : view.line.what;
    const LineSizes sizes = LineSizesFor(what, below ? more : QString(), inside.size(), unit);
    QRectF upper = inside, lower = inside;
    if (isFlat && !more.isEmpty()) {
        upper.setRight(inside.center().x());
        lower.setLeft(inside.center().x());
    } else if (below) {
        upper.setHeight(inside.height() * sizes.above / (sizes.above + sizes.below));
        lower.setTop(upper.bottom());
    }
    const int flags = Qt::AlignCenter | Qt::TextWordWrap;
    const QString head = HeadOf(what);
    if (!head.isEmpty()) {
        upper.setTop(upper.center().y() - sizes.above / 2);
        const QRectF above(upper.topLeft(), QSizeF(upper.width(), sizes.head));
        box.Text(above, flags, head, HeadFont(sizes.what * unit, head), ink);
        upper.setTop(above.bottom());
        upper.setHeight(sizes.above - sizes.head);
    }
    box.Text(upper, flags, what.mid(head.size()).trimmed(), sizes.what, QFont::Bold, ink);
    if (!more.isEmpty()) box.Text(lower, flags, more, sizes.more, QFont::Normal, faint);
}

}  // namespace zorva
