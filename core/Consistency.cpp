#include "core/Consistency.h"

#include <algorithm>

#include "core/Board.h"

namespace zorva {
namespace {

std::string About(const char* what, long which) {
    return std::string(what) + " " + std::to_string(which);
}

// A fourth piece on a goal stands in no slot, nor does a third when an earlier game left something
// in slot 3.
bool MayStandInNoSlot(const GameState& state, Colour colour, Square square) {
    if (square != GoalSquare[colour]) return false;
    return state.PiecesHome[colour] == 4 ||
           (state.PiecesHome[colour] == 3 && state.GoalLeftover[colour] != 0);
}

long SlotsHolding(const GameState& state, PieceCode code, Square square) {
    const auto& slots = state.SquareOccupants[square];
    const bool leftover =
        square == GoalSquare[ColourOf(code)] && state.GoalLeftover[ColourOf(code)] != 0;
    return std::count(slots.begin() + 1, leftover ? slots.begin() + 3 : slots.end(), code);
}

std::string PieceProblem(const GameState& state, Colour colour, Short piece) {
    const Square square = state.PiecePosition[colour][piece];
    const PieceCode code = CodeOf(colour, piece);
    if (square == 0) return {};
    if (!IsOnTrack(colour, square)) return About("off its track stands piece", code);
    const long found = SlotsHolding(state, code, square);
    if (found == 1 || (found == 0 && MayStandInNoSlot(state, colour, square))) return {};
    return About("not in exactly one slot stands piece", code);
}

std::string CountProblem(const GameState& state, Colour colour) {
    const auto& positions = state.PiecePosition[colour];
    const auto first = positions.begin() + 1;
    if (std::count(first, positions.end(), 0) != state.PiecesInBox[colour]) {
        return About("PiecesInBox is wrong for colour", colour);
    }
    if (std::count(first, positions.end(), GoalSquare[colour]) != state.PiecesHome[colour]) {
        return About("PiecesHome is wrong for colour", colour);
    }
    return {};
}

bool IsPiece(PieceCode code) {
    return ColourOf(code) >= 1 && ColourOf(code) <= ColourCount && PieceOf(code) >= 1 &&
           PieceOf(code) <= PiecesPerColour;
}

std::string SquareProblem(const GameState& state, Square square) {
    const auto& slots = state.SquareOccupants[square];
    for (Short slot = 1; slot <= 3; ++slot) {
        if (slots[slot] == 0) continue;
        if (slot == 3 && IsGoal(square)) continue;  // may be left over from an earlier game
        if (slot == 3) return About("three pieces stand on square", square);
        if (!IsPiece(slots[slot])) return About("no piece has the code on square", square);
        if (state.PositionOf(slots[slot]) != square)
            return About("a piece is not where it stands", square);
        if (slot == 2 && slots[1] == 0) return About("an empty slot below a piece on square", square);
    }
    return {};
}

}  // namespace

std::string StateProblem(const GameState& state) {
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        if (auto problem = CountProblem(state, colour); !problem.empty()) return problem;
        for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
            if (auto problem = PieceProblem(state, colour, piece); !problem.empty()) return problem;
        }
    }
    for (Square square = 1; square <= LastSquare; ++square) {
        if (auto problem = SquareProblem(state, square); !problem.empty()) return problem;
    }
    return {};
}

}  // namespace zorva
