#include "app/BoardMotion.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace zorva {
namespace {

// Eases in and out: slow at both ends.
double Eased(double progress) {
    return progress * progress * (3 - 2 * progress);
}

}  // namespace

QPointF PieceMotion::PlaceAt(double progress) const {
    return from + (to - from) * Eased(progress);
}

double PieceMotion::HeightAt(double progress) const {
    return rise * std::sin(progress * M_PI) + drop * (1 - progress * progress);
}

PieceMotion PieceMotion::Hop(PieceCode piece, QPointF from, QPointF to, double pieceSize,
                             bool comesHome) {
    constexpr double hop = 0.3;  // all in sizes of a piece
    constexpr double leapHome = 0.8;
    constexpr double steepness = 0.2;  // rise for each size of the piece beyond three
    constexpr double highest = 2.4;
    const double distance = std::hypot(to.x() - from.x(), to.y() - from.y()) / pieceSize;
    const double rise = (comesHome ? leapHome : hop) + steepness * std::max(0.0, distance - 3);
    return {piece, from, to, std::min(rise, highest) * pieceSize, 0};
}

PieceMotion PieceMotion::Slide(PieceCode piece, QPointF from, QPointF to) {
    return {piece, from, to, 0, 0};
}

PieceMotion PieceMotion::Drop(PieceCode piece, QPointF at, double pieceSize) {
    return {piece, at, at, 0, 1.2 * pieceSize};
}

BoardView::DiePose DieMotion::PoseAt(double progress) const {
    return {from.tilt + (to.tilt - from.tilt) * progress, from.size + (to.size - from.size) * progress,
            from.beside + (to.beside - from.beside) * progress};
}

BoardView::DiePose DieMotion::PoseOfRoll(int roll) {
    static const BoardView::DiePose poses[] = {
        {-70, 1.5, {0.20, 0.34}},   {-38, 1.34, {0.10, 0.16}},  {-14, 1.12, {-0.08, -0.04}},
        {-34, 1.22, {-0.15, -0.1}}, {12, 1.06, {-0.1, 0.06}},   {30, 1.14, {0.02, 0.1}},
        {-10, 1.03, {0.09, 0.02}},  {-20, 1.07, {0.05, -0.05}}, {8, 1.01, {-0.02, -0.02}},
    };
    const int index = roll - 1;
    return index >= 0 && index < static_cast<int>(std::size(poses)) ? poses[index]
                                                                    : BoardView::DiePose{};
}

// They slow down in the air, fall, and fade. Multiples of irrational numbers spread them evenly in place
// of chance.
std::vector<BoardView::Flake> FlakesAt(double progress, QPointF from, QPointF towards) {
    constexpr int count = 72;
    const double far = std::hypot(towards.x() - from.x(), towards.y() - from.y());
    const double middle = std::atan2(towards.y() - from.y() - 0.5 * far, towards.x() - from.x());
    const double flown = 1 - (1 - progress) * (1 - progress) * (1 - progress);
    std::vector<BoardView::Flake> flakes(count);
    for (int number = 1; number <= count; ++number) {
        const auto share = [&](double step) { return std::fmod(number * step, 1.0); };
        const double one = share(0.618034), other = share(0.754878), third = share(0.569840);
        const double direction = middle + (one - 0.5) * 1.9;
        const double reach = (0.3 + 1.5 * std::sqrt(other)) * flown * far;
        const QPointF fall(0.04 * progress * std::sin(9 * progress + 6 * third),
                           (0.2 + 0.35 * third) * progress * progress);
        flakes[static_cast<std::size_t>(number - 1)] = {
            from + reach * QPointF(std::cos(direction), std::sin(direction)) + fall * far,
            360 * one + 200 * (third - 0.5) * progress, std::cos(6 * other + (8 + 8 * third) * progress),
            std::min(1.0, 3.5 * (1 - progress))};
    }
    return flakes;
}

}  // namespace zorva
