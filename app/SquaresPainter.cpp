#include "app/SquaresPainter.h"

#include <QImage>
#include <QPainter>
#include <QPolygonF>
#include <QtMath>
#include <algorithm>
#include <cmath>

#include "app/BoardGrid.h"
#include "app/Palette.h"

namespace zorva {
namespace {

constexpr int cell = BoardGrid::Cell;
constexpr int block = BoardGrid::Block;

QColor Mixed(const QColor& colour, const QColor& other, double share) {
    const auto mixed = [share](int from, int to) { return qRound(from + (to - from) * share); };
    return {mixed(colour.red(), other.red()), mixed(colour.green(), other.green()),
            mixed(colour.blue(), other.blue())};
}

// An arm of the board: described for yellow, whose arm is the lower one, and turned for the others.
class Arm {
public:
    Arm(QPainter& painter, const BoardGrid& grid, Colour colour)
        : painter_(painter),
          grid_(grid),
          colour_(colour),
          base_(palette::Player[colour]),
          rim_(palette::PlayerRim[colour]),
          unit_(grid.CellSize() / 33) {}

    void PaintColours() {
        for (int row = 13; row < 20; ++row) Inlay(4 * block, row * cell);
        Inlay(5 * block, 16 * cell);
        Goal();
    }

    void PaintLines() {
        constexpr int end = BoardGrid::Side;
        Line({3 * block, 6 * block}, {3 * block, end});
        Line({4 * block, 13 * cell}, {4 * block, end});
        Line({5 * block, 13 * cell}, {5 * block, end});
        Line({6 * block, 6 * block}, {6 * block, end});
        for (int row = 14; row < 21; ++row) Line({3 * block, row * cell}, {6 * block, row * cell});
        Line({8 * cell, 13 * cell}, {13 * cell, 13 * cell});
    }

private:
    QPoint At(int x, int y) const { return BoardGrid::Turned({x, y}, colour_); }

    void Line(QPoint from, QPoint to) {
        const QRect line = grid_.Line(At(from.x(), from.y()), At(to.x(), to.y()));
        const int edge = std::max(1, qRound(0.6 * unit_));
        painter_.fillRect(line.adjusted(edge, edge, edge, edge), QColor(0xff, 0xfa, 0xe8, 0x60));
        painter_.fillRect(line, palette::Line);
    }

    // Cloth with a string of brass around it.
    void Inlay(int x, int y) {
        const QRect square = grid_.Within(At(x, y), At(x + block, y + cell));
        const int edge = std::max(1, qRound(stringWidth * unit_));
        painter_.fillRect(square, String());
        Weave(QRectF(square.adjusted(edge, edge, -edge, -edge)));
        Stud(QRectF(square).center());
    }

    // Fills `field` with twill whose threads run up to the arm's middle line, so that they point to the
    // goal. Between deeper threads the pure colour keeps more than half of each square and goal; on a
    // small board strings and figures take more of it, and deeper threads less.
    void Weave(const QPolygonF& field) {
        const QRect area = field.boundingRect().toAlignedRect();
        const QPoint middle = grid_.Crossing({BoardGrid::Side / 2, BoardGrid::Side / 2}).toPoint();
        const int thread = std::max(1, qRound(unit_));
        const int pattern = unit_ < 1 ? 4 : 3 * thread;
        const auto distance = [](int at, int from) { return std::abs(2 * (at - from) + 1) / 2; };
        QImage cloth(area.size(), QImage::Format_Indexed8);
        cloth.setColorTable({base_.rgb(), Mixed(base_, rim_, deepThread).rgb()});
        for (int y = 0; y < area.height(); ++y) {
            const int up = distance(area.y() + y, middle.y());
            for (int x = 0; x < area.width(); ++x) {
                const int aside = distance(area.x() + x, middle.x());
                cloth.setPixel(x, y, std::abs(up - aside) % pattern < thread);
            }
        }
        painter_.setBrush(cloth);
        painter_.setBrushOrigin(area.topLeft());
        painter_.setPen(Qt::NoPen);
        painter_.drawPolygon(field);
        painter_.setBrushOrigin(0, 0);
    }

    // A lozenge of the pure colour.
    void Stud(QPointF at) {
        const double reach = studReach * unit_;
        painter_.setBrush(base_);
        painter_.drawPolygon(QPolygonF({at - QPointF(reach, 0), at - QPointF(0, reach),
                                        at + QPointF(reach, 0), at + QPointF(0, reach)}));
    }

    // Corners on the lines; each smaller triangle lies the same way from all three edges. The band
    // around the enamel is bevelled: the lamp above and left lights the sides that face it.
    void Goal() {
        const QPolygonF goal(
            {grid_.Crossing(At(8 * cell, 13 * cell)), grid_.Crossing(At(13 * cell, 13 * cell)),
             (grid_.Crossing({8 * cell, 8 * cell}) + grid_.Crossing({13 * cell, 13 * cell})) / 2});
        const double height = 2.5, inradius = height * (M_SQRT2 - 1);  // in cells
        const QPointF base = (goal[0] + goal[1]) / 2;
        const QPointF middle = base + (goal[2] - base) * inradius / height;
        painter_.setPen(Qt::NoPen);
        const auto triangle = [&](double in) {
            QPolygonF smaller;
            for (const QPointF& corner : goal)
                smaller << middle + (corner - middle) * (1 - in * unit_ / (inradius * grid_.CellSize()));
            return smaller;
        };
        painter_.setBrush(Band());
        painter_.drawPolygon(goal);
        const QPolygonF string = triangle(goalBandWidth - stringWidth);
        for (int side = 0; side < 3; ++side) {
            const int next = (side + 1) % 3;
            const QPointF out = (goal[side] + goal[next]) / 2 - middle;
            const double lit = -(out.x() + out.y()) / std::hypot(out.x(), out.y()) / M_SQRT2;  // -1..1
            painter_.setBrush(lit > 0 ? Mixed(Band(), palette::Light, 0.4 * lit)
                                      : Mixed(Band(), Qt::black, -0.4 * lit));
            painter_.drawPolygon(QPolygonF({goal[side], goal[next], string[next], string[side]}));
        }
        painter_.setBrush(String());
        painter_.drawPolygon(string);
        const QPolygonF field = triangle(goalBandWidth);
        Weave(field);
    }

    QColor Band() const { return Mixed(base_, rim_, 0.8); }
    QColor String() const { return Mixed(palette::Brass, base_, 0.1); }

    // In units of which a cell has 33.
    static constexpr double goalBandWidth = 2;
    static constexpr double stringWidth = 0.9;

    static constexpr double studReach = 5;
    static constexpr double deepThread = 0.9;  // how near it comes to the rim's colour

    QPainter& painter_;
    const BoardGrid& grid_;
    Colour colour_;
    QColor base_, rim_;
    double unit_;
};

// Filled, for Qt draws a line of one pixel's width in steps.
void PaintDiagonal(QPainter& painter, const BoardGrid& grid, QPoint from, QPoint to) {
    const QPointF start = grid.Crossing(from), end = grid.Crossing(to);
    const QPointF way = (end - start) / std::hypot(end.x() - start.x(), end.y() - start.y());
    const QPointF aside = QPointF(-way.y(), way.x()) * grid.Thickness() * 0.6;
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette::Line);
    painter.drawPolygon(QPolygonF({start + aside, end + aside, end - aside, start - aside}));
}

}  // namespace

void PaintSquares(QPainter& painter, const Layout& layout) {
    const BoardGrid grid(layout);
    painter.setRenderHint(QPainter::Antialiasing);
    for (Colour colour = 1; colour <= ColourCount; ++colour) Arm(painter, grid, colour).PaintColours();
    constexpr int near = 3 * block, far = 6 * block;
    PaintDiagonal(painter, grid, {near, near}, {far, far});
    PaintDiagonal(painter, grid, {far, near}, {near, far});
    for (Colour colour = 1; colour <= ColourCount; ++colour) Arm(painter, grid, colour).PaintLines();
}

}  // namespace zorva
