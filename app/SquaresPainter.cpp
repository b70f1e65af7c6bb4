#include "app/SquaresPainter.h"

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
        painter_.setPen(Qt::NoPen);
        for (int row = 13; row < 20; ++row) {
            const QPointF middle = Inlay(4 * block, row * cell, fanFurrow);
            Lozenge(middle, lozengeReach + stringWidth * M_SQRT2, String());
            Lozenge(middle, lozengeReach, base_);
        }
        Inlay(5 * block, 16 * cell, exitFurrow);
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

    // Enamel with a string of brass around it and a fan engraved in it that points to the goal. Returns
    // the middle of the square.
    QPointF Inlay(int x, int y, double furrow) {
        const QRect square = grid_.Within(At(x, y), At(x + block, y + cell));
        const int edge = std::max(1, qRound(stringWidth * unit_));
        const QRect field = square.adjusted(edge, edge, -edge, -edge);
        painter_.fillRect(square, String());
        painter_.fillRect(field, base_);
        const QPointF middle = QRectF(square).center();
        const QPointF inwards = BoardGrid::Turned({0, 0}, colour_) - BoardGrid::Turned({0, 1}, colour_);
        Engrave(QRectF(field), middle + fanFrom * unit_ * inwards, furrow - fanEdges / unit_);
        return middle;
    }

    // Furrows that meet at `from`, each deepest along its middle. A furrow takes `share` of its part of
    // the circle; on a small board less, where brass and wells take more, so that more than half of each
    // square and goal keeps its pure colour.
    void Engrave(const QPolygonF& field, QPointF from, double share) {
        QConicalGradient furrows(from, 0);
        QColor ground = rim_, ridge = rim_;
        ground.setAlphaF(deepestFurrow);
        ridge.setAlpha(0);
        const double half = share / 2;
        for (int ray = 0; ray < rays; ++ray) {
            const double middle = ray + 0.5;
            furrows.setColorAt((middle - half) / rays, ridge);
            furrows.setColorAt(middle / rays, ground);
            furrows.setColorAt((middle + half) / rays, ridge);
        }
        painter_.setBrush(furrows);
        painter_.drawPolygon(field);
    }

    void Lozenge(QPointF at, double reach, const QColor& colour) {
        const QPointF right(reach * unit_, 0), down(0, reach * unit_);
        painter_.setBrush(colour);
        painter_.drawPolygon(QPolygonF({at - right, at - down, at + right, at + down}));
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
        painter_.setBrush(base_);
        painter_.drawPolygon(field);
        Engrave(field, goal[2], goalFurrow - goalEdges / unit_);
    }

    QColor Band() const { return Mixed(base_, rim_, 0.8); }
    QColor String() const { return Mixed(palette::Brass, base_, 0.1); }

    // In units of which a cell has 33.
    static constexpr double goalBandWidth = 2;
    static constexpr double stringWidth = 0.9;
    static constexpr double lozengeReach = 5;
    static constexpr double fanFrom = 24;  // from the middle of the square

    static constexpr int rays = 16;  // all around
    static constexpr double fanFurrow = 0.43, exitFurrow = 0.33, fanEdges = 0.045;
    static constexpr double goalFurrow = 0.31, goalEdges = 0.12;
    static constexpr float deepestFurrow = 0.6F;  // its opacity

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
