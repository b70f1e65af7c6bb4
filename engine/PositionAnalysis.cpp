#include "engine/PositionAnalysis.h"

#include <algorithm>

#include "engine/Game.h"

namespace zorva::engine {

// With the move that its level chooses the seat on turn has the chance that it has now: of the moves
// none more than the legal ones is played on.
PositionAnalysis::PositionAnalysis(const Moment& moment, const Settings& settings, std::uint64_t seed)
    : games_(settings, seed) {
    std::size_t expected = 0;
    if (!moment.IsThrowDue() && !moment.IsWon()) {
        moves_ = LegalMoves(moment.position, games_.Rules(), moment.seat, moment.due);
        const MoveChoice choice = ChooseMove(moment.position, games_.Rules(), moment.seat, moment.due);
        const auto found = std::find(moves_.begin(), moves_.end(), choice);
        if (found != moves_.end()) expected = static_cast<std::size_t>(found - moves_.begin());
    }
    if (moves_.empty()) games_.AddMoment(moment);
    for (const MoveChoice& move : moves_) {
        Game game(games_.Rules(), moment);
        game.Make(move);
        games_.AddMoment(game.Now());
    }
    AddFigures(moment.seat, expected);
}

// The chances of all seats come first. Then, by rows, those after each move and what each is better than
// each.
void PositionAnalysis::AddFigures(Seat onTurn, std::size_t expected) {
    for (Seat seat = 0; seat < SeatCount; ++seat) games_.AddFigure({seat, {{expected, 1}}});
    for (std::size_t move = 0; move < moves_.size(); ++move) {
        games_.AddFigure({onTurn, {{move, 1}}});
        for (std::size_t other = 0; other < moves_.size(); ++other) {
            games_.AddFigure({onTurn, {{move, 1}, {other, -1}}});
        }
    }
}

std::size_t PositionAnalysis::FigureOf(std::size_t move, std::size_t other) const {
    return SeatCount + move * (moves_.size() + 1) + 1 + other;
}

Estimate PositionAnalysis::ChanceAfter(std::size_t move, const Tally& tally) const {
    return games_.Of(tally, SeatCount + move * (moves_.size() + 1));
}

Estimate PositionAnalysis::Difference(std::size_t move, std::size_t other, const Tally& tally) const {
    return games_.Of(tally, FigureOf(move, other));
}

std::size_t PositionAnalysis::BestMove(const Tally& tally) const {
    std::size_t best = 0;
    for (std::size_t move = 1; move < moves_.size(); ++move) {
        if (Difference(move, best, tally).value > 0) best = move;
    }
    return best;
}

}  // namespace zorva::engine
