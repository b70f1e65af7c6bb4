#include "app/PositionWork.h"

#include <algorithm>

namespace zorva {
namespace {

constexpr std::uint64_t firstGames = 2'000, mostGames = 20'000;  // from all moments together

}  // namespace

std::uint64_t NextRange(std::uint64_t count, std::size_t moments) {
    const std::uint64_t first = firstGames / moments, most = mostGames / moments;
    return std::max<std::uint64_t>(1, std::clamp(count, first, most));
}

PositionWork::PositionWork(const engine::Moment& moment, const Settings& settings, std::uint64_t most)
    : moment_(moment), settings_(settings), most_(most), analysis_(moment, settings, ChancesSeed) {}

void PositionWork::Sharpen(unsigned threads, const std::stop_token& stop) {
    const std::uint64_t range = NextRange(tally_.count, analysis_.Games().Moments());
    const std::uint64_t last = std::min(tally_.count + range, most_);
    tally_ += analysis_.Games().Play(tally_.count, last, threads, stop);
}

PositionReport PositionWork::Report() const {
    PositionReport report;
    report.settings = settings_;
    report.onTurn = engine::ColourAt(moment_.seat);
    report.count = ToShort(moment_.due.count);
    report.isWon = moment_.IsWon();
    for (engine::Seat seat = 0; seat < engine::SeatCount; ++seat)
        report.chances[seat] = analysis_.ChanceOf(seat, tally_);
    AddMoves(report);
    report.playOuts = tally_.count;
    report.progress = static_cast<double>(tally_.count) / static_cast<double>(most_);
    return report;
}

// Two pieces on one square have the same move: the report lists only one of them.
void PositionWork::AddMoves(PositionReport& report) const {
    const std::vector<engine::MoveChoice>& moves = analysis_.Moves();
    if (settings_.PlayerType[report.onTurn] != 2 || moves.empty() || moves[0].piece == engine::NoPiece)
        return;
    const std::size_t best = analysis_.BestMove(tally_);
    for (std::size_t move = 0; move < moves.size(); ++move) {
        const unsigned step = moment_.position.SideOf(moment_.seat).StepOf(moves[move].piece);
        const Square from = ToShort(engine::SquareAt(moment_.seat, step));
        const auto isTold = [&](const PositionReport::Move& told) { return told.from == from; };
        if (std::any_of(report.moves.begin(), report.moves.end(), isTold)) continue;
        const engine::Estimate less = analysis_.Difference(best, move, tally_);
        report.moves.push_back({ToShort(moves[move].piece + 1), from,
                                analysis_.ChanceAfter(move, tally_), less.value <= 2 * less.error});
    }
    if (report.moves.size() < 2) report.moves.clear();
    std::stable_sort(report.moves.begin(), report.moves.end(), [](const auto& one, const auto& other) {
        return one.chance.value > other.chance.value;
    });
}

}  // namespace zorva
