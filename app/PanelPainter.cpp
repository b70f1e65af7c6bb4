#include "app/PanelPainter.h"

#include <QPainter>
#include <algorithm>
#include <array>
#include <span>

#include "app/Artwork.h"
#include "app/Fonts.h"
#include "app/Layout.h"
#include "app/MenuButtons.h"
#include "app/Palette.h"

namespace zorva {
namespace {

// Measures in layout pixels.
constexpr double beyondBand = 16;   // how far the band reaches over the log's ends where there is room
constexpr double bandCorner = 24;   // the corner of the drawing, which is not stretched
constexpr double tooledEdge = 9.5;  // the part of that up to the inner line of gold
constexpr double opaqueBand = 8;    // the part of that which is round and not opaque
constexpr double caseCorner = 14;
constexpr double widestBorder = 16;  // what the band has beside its instruments when its border is whole
constexpr double shadowReach = 11;
constexpr QPointF shadowFall(2.5, 3.5);
constexpr double besidePaper = 2.5, slitAbove = 8, slitHeight = 4.4;
constexpr double grainSide = 48;

QRectF AsRect(const Box& box) {
    return QRectF(box.x, box.y, box.width, box.height);
}

// Layout pixels as device pixels of the window.
QRectF OnDevice(const Layout& layout, const QRectF& area) {
    return {layout.DeviceLeft + area.x() * layout.Unit, layout.DeviceTop + area.y() * layout.Unit,
            area.width() * layout.Unit, area.height() * layout.Unit};
}

// Paints a square drawing with its corners at their own size and everything between them stretched, as
// nine parts. `corner` is in the drawing's units, `unit` the device pixels for each of them.
void PaintStretched(QPainter& painter, Artwork& artwork, const QString& name, const QRectF& target,
                    double corner, double unit) {
    const QRect area = target.toAlignedRect();
    const int width = qRound(corner * unit);
    constexpr double middle = 16;  // units of the drawing between its corners
    const std::array<double, 4> from{0, corner, corner + middle, 2 * corner + middle};
    const std::array<int, 4> x{area.left(), area.left() + width, area.right() + 1 - width,
                               area.right() + 1};
    const std::array<int, 4> y{area.top(), area.top() + width, area.bottom() + 1 - width,
                               area.bottom() + 1};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            const QSize size(x[column + 1] - x[column], y[row + 1] - y[row]);
            const QRectF part(from[column], from[row], from[column + 1] - from[column],
                              from[row + 1] - from[row]);
            const QRect place(QPoint(x[column], y[row]), size);
            if (!place.isEmpty()) artwork.PaintPart(painter, name, part, place);
        }
    }
}

// From edge to edge of the table, whose ends are off the screen; on a screen that is taller than the
// layout the band ends a little above the buttons and below the log.
QRectF Band(const Layout& layout) {
    const double beyond = layout.DeviceTop > beyondBand * layout.Unit ? beyondBand : 2 * bandCorner;
    const bool reachesEdge = layout.BandLeft + layout.BandWidth == layout.ScreenWidth;
    return {1.0 * layout.BandLeft, -beyond, layout.BandWidth + (reachesEdge ? 2 * bandCorner : 0),
            layout.ScreenHeight + 2 * beyond};
}

// How large the band's border is drawn, of its own size.
double BorderScale(const Layout& layout, const QRectF& band) {
    const int held = std::max(layout.LogPaper.width, layout.Buttons.width);
    return std::clamp((band.width() - held) / (2 * widestBorder), 0.3, 1.0);
}

// Softly around what lies on the table.
void PaintShadow(QPainter& painter, Artwork& artwork, const Layout& layout, const QRectF& object) {
    const QRectF shadow = object.adjusted(-shadowReach, -shadowReach, shadowReach, shadowReach);
    PaintStretched(painter, artwork, "panel_shadow", OnDevice(layout, shadow.translated(shadowFall)),
                   2 * shadowReach, layout.Unit);
}

// A tile of the leather's grain.
QImage Grain(Artwork& artwork, double unit) {
    const int side = qRound(grainSide * unit);
    QImage grain(side, side, QImage::Format_ARGB32_Premultiplied);
    grain.fill(Qt::transparent);
    QPainter painter(&grain);
    artwork.PaintPart(painter, "panel_grain", {0, 0, grainSide, grainSide}, grain.rect());
    return grain;
}

// The lamp hangs above: what lies lower on the table is darker.
QLinearGradient LightOnPad(const Layout& layout) {
    QLinearGradient lamp(0, layout.DeviceTop, 0, layout.DeviceTop + layout.ScreenHeight * layout.Unit);
    lamp.setColorAt(0, QColor(0xff, 0xd0, 0x90, 24));
    lamp.setColorAt(0.2, QColor(0x1c, 0x0c, 0x04, 0));
    lamp.setColorAt(1, QColor(0x1c, 0x0c, 0x04, 150));
    return lamp;
}

void PaintPad(QPainter& painter, Artwork& artwork, const Layout& layout, const QRectF& pad) {
    const double border = BorderScale(layout, pad);
    PaintShadow(painter, artwork, layout, pad);
    PaintStretched(painter, artwork, "panel_band", OnDevice(layout, pad), bandCorner,
                   border * layout.Unit);
    const double edge = tooledEdge * border;
    painter.fillRect(OnDevice(layout, pad.adjusted(edge, edge, -edge, -edge)),
                     Grain(artwork, layout.Unit));
    painter.fillRect(OnDevice(layout, pad.adjusted(1, 1, -1, -1)), LightOnPad(layout));
}

// Pressed into the leather in gold, where there is room above the buttons.
void PaintProgramName(QPainter& painter, const Layout& layout) {
    const Box& buttons = layout.Buttons;
    constexpr int room = 40;
    if (buttons.y < room || !layout.HasCards()) return;
    const double size = std::min(0.45 * buttons.y, 0.2 * buttons.width);
    const QString name = QStringLiteral("ZORVA");
    QFont font = DisplayFont(size * layout.Unit, name);
    font.setLetterSpacing(QFont::PercentageSpacing, 125);
    painter.setFont(font);
    const QRectF place = OnDevice(layout, QRectF(buttons.x, 3, buttons.width, buttons.y - 6));
    QLinearGradient gold(place.topLeft(), place.bottomLeft());
    gold.setColorAt(0.25, QColor(0xff, 0xe9, 0xb0));
    gold.setColorAt(0.5, palette::Brass);
    gold.setColorAt(0.75, QColor(0x9a, 0x70, 0x2c));
    for (const auto& [brush, down] :
         {std::pair(QBrush(QColor(0, 0, 0, 170)), -0.9),
          std::pair(QBrush(QColor(255, 255, 255, 40)), 0.9), std::pair(QBrush(gold), 0.0)}) {
        painter.setPen(QPen(brush, 1));
        painter.drawText(place.translated(0, down * layout.Unit), Qt::AlignCenter, name);
    }
}

// It fills the place of the large keys while the recorder is off; they cover most of it.
void PaintCrest(QPainter& painter, Artwork& artwork, const Layout& layout) {
    if (layout.LabelHeight == 0) return;
    QRectF keys;
    for (const Box& key : std::span(layout.LargeKey).subspan(1)) keys |= AsRect(key);
    QRectF crest(0, 0, keys.width(), keys.width());
    crest.moveCenter(keys.center());
    artwork.Paint(painter, "panel_crest", OnDevice(layout, crest));
}

// The names of the keys, below each.
void PaintLabels(QPainter& painter, const Layout& layout) {
    if (layout.LabelHeight == 0) return;
    painter.setFont(TextFont(11.5 * layout.Unit));
    painter.setPen(QColor(0xea, 0xdf, 0xc2));
    const auto paint = [&](const Box& key, const QString& name) {
        const QRectF below(key.x - key.width, key.y + key.height, 3 * key.width, layout.LabelHeight);
        painter.drawText(OnDevice(layout, below), Qt::AlignCenter, name);
    };
    for (int index = 0; index < MenuButtonCount; ++index)
        paint(layout.Button[index], MenuButtons::Name(index));
    paint(layout.Chances, "Probabilidades");
}

}  // namespace

QRect PanelArea(const Layout& layout, QSize devicePixels) {
    QRectF area = Band(layout);
    if (layout.Cup.width > 0) area |= AsRect(layout.Cup);
    constexpr double beyond = 2 * shadowReach;
    area.adjust(-beyond, -beyond, beyond, beyond);
    return OnDevice(layout, area).toAlignedRect() & QRect(QPoint(), devicePixels);
}

QRect HiddenByPanel(const Layout& layout) {
    const QRectF band = Band(layout);
    const double edge = opaqueBand * BorderScale(layout, band);
    return OnDevice(layout, band.adjusted(edge, edge, -edge, -edge)).toAlignedRect();
}

void PaintInstrumentPanel(QPainter& painter, Artwork& artwork, const Layout& layout) {
    PaintPad(painter, artwork, layout, Band(layout));
    PaintStretched(painter, artwork, "panel_case", OnDevice(layout, AsRect(layout.Case)), caseCorner,
                   layout.Unit);
    const QRectF body = AsRect(layout.Case), paper = AsRect(layout.LogPaper);
    const QRectF slit(paper.left() - besidePaper, body.bottom() - slitAbove,
                      paper.width() + 2 * besidePaper, slitHeight);
    artwork.Paint(painter, "panel_slit", OnDevice(layout, slit & body.adjusted(3, 0, -3, 0)));
    if (layout.Reel.width > 0)
        artwork.Paint(painter, "panel_reel", OnDevice(layout, AsRect(layout.Reel)));
    PaintProgramName(painter, layout);
    PaintLabels(painter, layout);
    PaintCrest(painter, artwork, layout);
    if (layout.Cup.width > 0) artwork.Paint(painter, "panel_cup", OnDevice(layout, AsRect(layout.Cup)));
}

}  // namespace zorva
