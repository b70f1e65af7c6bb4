#include "store/SavedGame.h"

#include <algorithm>

#include "core/Board.h"
#include "core/Consistency.h"
#include "core/Ending.h"
#include "core/Execution.h"
#include "core/Records.h"
#include "core/Rules.h"
#include "core/SilentOutside.h"
#include "store/RecordCheck.h"

namespace zorva {
namespace {

bool IsPieceOf(Colour colour, PieceCode code) {
    return ColourOf(code) == colour && PieceOf(code) >= 1 && PieceOf(code) <= PiecesPerColour;
}

// Only a colour's own pieces ever reach its goal, so slot 3 cannot hold another one even from an earlier
// game.
bool AreGoalsSound(const GameState& state) {
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        const PieceCode last = state.SquareOccupants[GoalSquare[colour]][3];
        if (last != 0 && !IsPieceOf(colour, last)) return false;
    }
    return true;
}

// The fourth piece of a colour that comes home wins the game, so no move follows that one.
bool VictoryFits(const GameState& state, const MoveRecord& last) {
    const auto winners = std::count(state.PiecesHome.begin(), state.PiecesHome.end(), PiecesPerColour);
    return winners == 0 || (winners == 1 && HasWon(state) && BonusDueAfter(last) == ArrivalBonus);
}

GameState StartOf(const GameState& game) {
    GameState start;
    start.GoalLeftover = game.GoalLeftover;
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        start.SquareOccupants[GoalSquare[colour]][3] = game.GoalLeftover[colour];
    }
    start.MoveRecords = game.MoveRecords;
    return start;
}

// Replays the records 1 to `moves`; returns false at the first illegal one, or when the last one is a
// capture without the captured piece's return.
bool Replay(GameState& replayed, Short moves) {
    SilentOutside outside;
    const Settings settings;
    for (Short move = 1; move <= moves; ++move) {
        if (!CanFollow(replayed, replayed.MoveRecords[move])) return false;
        replayed.MoveRecordCount = move;
        ExecuteMove({replayed, settings, outside}, ExecutionMode::Forward, move);
    }
    return replayed.CaptureReport == 0;
}

// PiecesInBox and PiecesHome need no comparison here: StateProblem compares them with the positions.
bool RecordsLeadThere(const GameState& state) {
    GameState replayed = StartOf(state);
    return Replay(replayed, static_cast<Short>(state.MoveRecordCount - 1)) &&
           replayed.PiecePosition == state.PiecePosition &&
           replayed.SquareOccupants == state.SquareOccupants;
}

// A turn goes on after a six and for a bonus. The colour is then that of the last record, and so is the
// number of sixes in a row.
bool TurnFits(const GameState& state, const MoveRecord& last) {
    if (state.CurrentColour == 0) return false;
    if (state.SixesInRow == 0 && BonusDueAfter(last) == 0) return true;
    return state.RepeatTurn && state.CurrentColour == ColourOnTurn(last) &&
           state.SixesInRow == last.RepeatState;
}

// The winning piece stands in no slot: if slot 3 has its code, an earlier game left it there.
bool HasJustWon(const GameState& state, PieceCode piece) {
    if (!state.GameInProgress || state.PiecesHome[ColourOf(piece)] != PiecesPerColour) return false;
    const MoveRecord& last = state.MoveRecords[state.MoveRecordCount - 1];
    return CodeOf(last.MoverColour, last.Piece) == piece;
}

}  // namespace

// Slot 3 is filled last: its code belongs to this game only if that piece is on the goal and in no other
// slot, and slot 2 is taken. Otherwise an earlier game left it there. When an earlier game left the code
// of the very piece that stands there, the board does not tell the two apart, and taking that move back
// empties the slot: nothing reads slot 3 of a goal that holds two pieces.
void RecogniseLeftovers(GameState& state) {
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        const auto& slots = state.SquareOccupants[GoalSquare[colour]];
        const PieceCode last = slots[3];
        const bool ofThisGame = IsPieceOf(colour, last) &&
                                state.PositionOf(last) == GoalSquare[colour] && slots[2] != 0 &&
                                slots[1] != last && slots[2] != last && !HasJustWon(state, last);
        state.GoalLeftover[colour] = ofThisGame ? PieceCode{0} : last;
    }
}

bool IsSound(const GameState& state) {
    if (!AreGoalsSound(state) || !StateProblem(state).empty()) return false;
    if (!state.GameInProgress) return true;
    const MoveRecord& last = state.MoveRecords[state.MoveRecordCount - 1];
    return VictoryFits(state, last) && TurnFits(state, last) && RecordsLeadThere(state);
}

}  // namespace zorva
