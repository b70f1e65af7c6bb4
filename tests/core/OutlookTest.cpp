#include "core/Appraisal.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdlib>
#include <sstream>
#include <string>

#include "core/Board.h"
#include "core/Player.h"
#include "core/Rules.h"
#include "tests/support/Positions.h"
#include "tests/support/RandomGame.h"

namespace zorva::test {
namespace {

/// Random games to look at; some 1,300 positions each. More of them from the environment.
std::uint64_t GamesToPlay() {
    const char* wanted = std::getenv("ZORVA_OUTLOOK_GAMES");
    return wanted ? std::strtoull(wanted, nullptr, 10) : 2000;
}

/// Every score to the last bit: decisions compare scores that are almost equal.
bool IsSameDouble(double one, double other) {
    return std::bit_cast<std::uint64_t>(one + 0.0) == std::bit_cast<std::uint64_t>(other + 0.0);
}

/// Asks each position of a game about the moves of all four colours, and compares the answers of the
/// bit sets with those of the functions that define them.
class Comparison {
public:
    explicit Comparison(Chance& chance) : chance_(chance) {}

    /// What differs first, or nothing.
    std::string Look(const GameState& seen) {
        state_.PiecePosition = seen.PiecePosition;
        state_.SquareOccupants = seen.SquareOccupants;
        state_.PiecesInBox = seen.PiecesInBox;
        state_.PiecesHome = seen.PiecesHome;
        state_.SixValue = seen.SixValue;
        for (Colour colour = 1; colour <= ColourCount; ++colour) {
            state_.CurrentColour = colour;
            state_.MoveCount = static_cast<Short>(1 + chance_.Below(20));
            state_.DieValue = state_.MoveCount <= 6 ? state_.MoveCount : Short{0};
            settings_.PlayerLevel[colour] = static_cast<Short>(chance_.Below(101));
            settings_.RuleLeaveAllInBox = 2;
            settings_.RuleFiveSomeInBox = 2;
            ++positions_;
            if (std::string problem = Compare(); !problem.empty()) return problem;
        }
        return {};
    }

    std::uint64_t Positions() const { return positions_; }
    std::uint64_t Scores() const { return scores_; }

private:
    std::string Compare() {
        const Colour colour = state_.CurrentColour;
        const Short count = state_.MoveCount, level = settings_.PlayerLevel[colour];
        const Outlook outlook(state_);
        const Appraisal appraisal(outlook, level);
        const Appraisal::Ends ends = appraisal.EndsOf(outlook.MovablePieces(count));
        Short best = 0;
        double bestScore = -999;
        for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
            const Square from = state_.PiecePosition[colour][piece];
            const bool legal = IsMoveLegal(state_, colour, count, from);
            if (outlook.IsMoveLegal(count, piece) != legal) return About("legality", piece);
            if (!legal) continue;
            const Square to = DestinationOf(colour, count, from);
            if (outlook.DestinationOf(count, piece) != to) return About("target", piece);
            const double score = ScoreOfMove(state_, settings_, piece);
            if (!IsSameDouble(appraisal.ScoreOfMove(ends, piece), score)) return About("score", piece);
            ++scores_;
            if (score > bestScore) best = piece;
            if (score > bestScore) bestScore = score;
        }
        ChooseComputerMove(state_, settings_);
        return state_.BestPiece == best ? "" : About("choice", best);
    }

    std::string About(const char* what, Short piece) const {
        std::ostringstream text;
        text << what << " of colour " << state_.CurrentColour << ", piece " << piece << ", "
             << state_.MoveCount << " squares, at";
        for (Colour colour = 1; colour <= ColourCount; ++colour)
            text << ' ' << SquaresText(state_, colour);
        return text.str();
    }

    Chance& chance_;
    GameState state_;
    Settings settings_;
    std::uint64_t positions_ = 0;
    std::uint64_t scores_ = 0;
};

TEST(Outlook, AnswersAsTheRulesAndTheScoresDo) {
    Chance questions(3);
    Comparison comparison(questions);
    std::string problem;
    const std::uint64_t games = GamesToPlay();
    for (std::uint64_t number = 0; number < games; ++number) {
        Chance chance(2, number);
        const RandomGameKind kind = RandomGameKind::Of(chance);
        GameState state;
        PlayRandomGame(state, kind, chance, [&](const GameState& seen, const MoveRecord&) {
            // In between a capture and the victim's way home there is nothing to decide.
            if (problem.empty() && seen.CaptureReport == 0) problem = comparison.Look(seen);
        });
        ASSERT_EQ(problem, "") << "in game " << number;
    }
    EXPECT_GT(comparison.Positions(), 2500 * games);
    EXPECT_GT(comparison.Scores(), 1800 * games);
}

}  // namespace
}  // namespace zorva::test
