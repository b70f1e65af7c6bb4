#include "app/BoardGrid.h"

#include <algorithm>
#include <cmath>

namespace zorva {

BoardGrid::BoardGrid(const Layout& layout)
    : origin_(layout.Device(QPointF(layout.Margin, layout.Margin))),
      third_(layout.Cell * layout.Unit / 3),
      width_(std::max(1, qRound(layout.Cell * layout.Unit / 33))) {}

QPoint BoardGrid::Turned(QPoint at, Colour colour) {
    for (Colour turn = 1; turn < colour; ++turn) at = {at.y(), Side - at.x()};
    return at;
}

// At its edges the board has the frame and no line.
int BoardGrid::End(double origin, int thirds) const {
    constexpr double rounding = 1e-6;
    const double at = origin + thirds * third_;
    return static_cast<int>(thirds % Side == 0 ? std::lround(at) : std::ceil(at - rounding));
}

int BoardGrid::Start(double origin, int thirds) const {
    return End(origin, thirds) - (thirds % Side == 0 ? 0 : width_);
}

QRect BoardGrid::Line(QPoint from, QPoint to) const {
    const auto [left, right] = std::minmax({from.x(), to.x()});
    const auto [top, bottom] = std::minmax({from.y(), to.y()});
    return {QPoint(Start(origin_.x(), left), Start(origin_.y(), top)),
            QPoint(End(origin_.x(), right) - 1, End(origin_.y(), bottom) - 1)};
}

QRect BoardGrid::Within(QPoint one, QPoint other) const {
    const auto [left, right] = std::minmax({one.x(), other.x()});
    const auto [top, bottom] = std::minmax({one.y(), other.y()});
    return {QPoint(End(origin_.x(), left), End(origin_.y(), top)),
            QPoint(Start(origin_.x(), right) - 1, Start(origin_.y(), bottom) - 1)};
}

QRect BoardGrid::House(Colour colour) const {
    const QPoint corner = Turned({6 * Block, 6 * Block}, colour), end = Turned({Side, Side}, colour);
    return Within(corner, end);
}

QPointF BoardGrid::Crossing(QPoint at) const {
    return QPointF(End(origin_.x(), at.x()), End(origin_.y(), at.y())) - QPointF(width_, width_) / 2;
}

}  // namespace zorva
