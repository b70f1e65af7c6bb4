#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstdlib>

#include "core/Player.h"
#include "core/Rules.h"
#include "engine/Evaluator.h"
#include "engine/MoveChoice.h"
#include "tests/support/Positions.h"
#include "tests/support/RandomGame.h"

namespace zorva::test {
namespace {

/// Random games to take positions from, some 2,700 positions each; ZORVA_ENGINE_GAMES asks for more.
std::uint64_t GamesToPlay() {
    const char* wanted = std::getenv("ZORVA_ENGINE_GAMES");
    return wanted ? std::strtoull(wanted, nullptr, 10) : 800;
}

/// To the last bit, since decisions compare scores that are almost equal; 0 and -0 are one.
bool IsSameScore(double one, double other) {
    return std::bit_cast<std::uint64_t>(one + 0.0) == std::bit_cast<std::uint64_t>(other + 0.0);
}

/// Asks core and engine the same questions about a position and says what they answer differently.
class Comparison {
public:
    /// Compares the moves of all four colours, each with a count, a level and rules by chance.
    std::string Look(const GameState& seen) {
        std::tie(state_.PiecePosition, state_.SquareOccupants, state_.PiecesInBox, state_.PiecesHome) =
            TablesOf(seen);
        state_.SixValue = seen.SixValue;
        settings_.RuleSixAllOut = seen.SixValue == 7 ? 1 : 2;
        const engine::Position position(state_);
        std::string difference;
        for (Colour colour = 1; colour <= ColourCount && difference.empty(); ++colour) {
            Ask(colour);
            difference = DifferentMove(position);
            if (difference.empty()) difference = DifferentChoice(position);
        }
        return difference;
    }

    std::uint64_t Scores() const { return scores_; }

private:
    Short Either() { return static_cast<Short>(1 + chance_.Below(2)); }

    void Ask(Colour colour) {
        state_.CurrentColour = colour;
        state_.MoveCount = static_cast<Short>(1 + chance_.Below(20));
        state_.DieValue = state_.MoveCount <= 6 ? state_.MoveCount : Short{0};
        state_.SecondMovePending = 0;
        settings_.PlayerLevel[colour] = static_cast<Short>(chance_.Below(101));
        settings_.RuleLeaveAllInBox = Either();
        settings_.RuleFiveAllInBox = Either();
        settings_.RuleFiveSomeInBox = Either();
    }

    // Which pieces may move, how far, and with what score.
    std::string DifferentMove(const engine::Position& position) {
        const Colour colour = state_.CurrentColour;
        const auto seat = engine::SeatOf(colour);
        const auto count = static_cast<unsigned>(state_.MoveCount);
        const engine::SeatView view(position, seat);
        const engine::Evaluator evaluator(view, engine::GameRules(settings_), count,
                                          view.MovablePieces(count));
        for (unsigned piece = 0; piece < PiecesPerColour; ++piece) {
            const auto number = static_cast<Short>(piece + 1);
            const Square from = state_.PiecePosition[colour][number];
            const bool isLegal = IsMoveLegal(state_, colour, state_.MoveCount, from);
            if (view.IsMoveLegal(piece, count) != isLegal) return About("the legality");
            if (!isLegal) continue;
            ++scores_;
            const unsigned step = engine::StepAfter(position.SideOf(seat).StepOf(piece), count);
            if (engine::SquareAt(seat, step) != DestinationOf(colour, state_.MoveCount, from)) {
                return About("the destination");
            }
            if (!IsSameScore(evaluator.ScoreOfMove(piece), ScoreOfMove(state_, settings_, number))) {
                return About("the score");
            }
        }
        return {};
    }

    std::string DifferentChoice(const engine::Position& position) {
        const auto seat = engine::SeatOf(state_.CurrentColour);
        const engine::GameRules rules(settings_);
        const engine::Throw thrown{static_cast<unsigned>(state_.DieValue),
                                   static_cast<unsigned>(state_.MoveCount)};
        const engine::MoveChoice choice = engine::ChooseMove(position, rules, seat, thrown);
        state_.MovablePieces = {};
        ChooseComputerMove(state_, settings_);
        const bool moves = choice.piece != engine::NoPiece;
        const bool isSame = state_.BestPiece == (moves ? static_cast<Short>(choice.piece + 1) : 0) &&
                            state_.BestTo == (moves ? engine::SquareAt(seat, choice.to) : 0) &&
                            (state_.SecondMovePending == 1) == choice.bringsTwo;
        if (!isSame) return About("the choice");
        const auto& movable = state_.MovablePieces;
        const auto count = std::count(movable.begin() + 1, movable.end(), Yes);
        const bool canMove = !moves || movable[state_.BestPiece] == Yes;
        PerPiece<Short> legal{};
        for (const auto& move : engine::LegalMoves(position, rules, seat, thrown))
            legal[move.piece + 1] = Yes;
        const bool isLegal = legal == movable;
        return count == state_.LegalMoveCount && canMove && isLegal ? "" : About("what may move");
    }

    std::string About(std::string what) const {
        what += " of colour " + std::to_string(state_.CurrentColour) + ", which walks " +
                std::to_string(state_.MoveCount) + ", at";
        for (Colour colour = 1; colour <= ColourCount; ++colour)
            what += " " + SquaresText(state_, colour);
        return what;
    }

    Chance chance_{3};
    GameState state_;
    Settings settings_;
    std::uint64_t scores_ = 0;
};

TEST(Decision, IsThatOfTheRuleBookInEveryPositionOfRandomGames) {
    Comparison comparison;
    std::string difference;
    const std::uint64_t games = GamesToPlay();
    for (std::uint64_t number = 0; number < games; ++number) {
        RandomGame game(2, number);
        game.beforeRecord = [&](const MoveRecord&) {
            // Between a capture and the return of the captured piece there is nothing to decide.
            if (difference.empty() && game.state.CaptureReport == 0)
                difference = comparison.Look(game.state);
        };
        game.Play();
        ASSERT_EQ(difference, "") << "in game " << number;
    }
    EXPECT_GT(comparison.Scores(), 1500 * games);
}

}  // namespace
}  // namespace zorva::test
