#include "core/Execution.h"

#include <algorithm>
#include <utility>

#include "core/Board.h"
#include "core/Records.h"
#include "core/Rules.h"

namespace zorva {
namespace {

using Slots = std::array<PieceCode, 4>;

// The pieces in the higher slots move down, so that a lone piece always stands in slot 1: capture,
// attack and risk all read slot 1 first.
void TakeFromSlots(Slots& slots, PieceCode code) {
    const auto end = std::remove(slots.begin() + 1, slots.end(), code);
    std::fill(end, slots.end(), PieceCode{0});
}

// A fourth piece on a goal finds no empty slot; only PiecePosition says where it is.
void PutIntoFirstEmptySlot(Slots& slots, PieceCode code) {
    const auto slot = std::find(slots.begin() + 1, slots.end(), 0);
    if (slot != slots.end()) *slot = code;
}

// ---------------------------------------------------------------------------------- forwards

void Lift(const GameContext& game, Colour colour, PieceCode code, Square from) {
    GameState& state = game.state;
    if (from == 0) {
        --state.PiecesInBox[colour];
    } else {
        TakeFromSlots(state.SquareOccupants[from], code);
    }
    game.outside.LiftPiece(code, from);
}

void StepTo(const GameContext& game, PieceCode code, Square from, Square to) {
    game.outside.PlaySound(Sound::Step);
    game.outside.StepPiece(code, from, to);
    game.outside.StepDelay(80);
}

void Walk(const GameContext& game, Colour colour, PieceCode code, Square from, Square to) {
    Square square = from;
    if (from == 0) {
        game.outside.PlaySound(Sound::Box);
        game.outside.Pause(15);  // the first step would cut the sound off
        square = ExitSquare[colour];
        StepTo(game, code, 0, square);
    }
    while (square != to) {
        const Square next = AdvanceSquare(square, 1, colour);
        Require(next <= GoalSquare[colour], "a piece walks past its goal");
        StepTo(game, code, square, next);
        square = next;
    }
}

// A piece flies in one step from its square into the box.
void FlyToBox(const GameContext& game, PieceCode code, Square from) {
    const bool isPenalty = game.state.SixesInRow == 3;
    if (isPenalty) game.outside.Pause(45);
    game.outside.PlaySound(Sound::SentHome);
    game.outside.StepPiece(code, from, 0);
    game.outside.Pause(isPenalty ? 55 : 45);
    game.outside.Pause(20);
}

// The hand has carried a piece that was dragged to its place already, and has sounded.
void Travel(const GameContext& game, const MoveRecord& record, PieceCode code) {
    if (record.Manual) return;
    if (record.To == 0) {
        FlyToBox(game, code, record.From);
    } else {
        Walk(game, record.MoverColour, code, record.From, record.To);
    }
}

void PutDown(const GameContext& game, Colour colour, PieceCode code, Square to) {
    GameState& state = game.state;
    state.PiecePosition[colour][PieceOf(code)] = to;
    if (to == 0) {
        ++state.PiecesInBox[colour];
    } else {
        PutIntoFirstEmptySlot(state.SquareOccupants[to], code);
    }
    if (to == GoalSquare[colour]) ++state.PiecesHome[colour];
    game.outside.PutDownPiece(code, to);
}

void CheckCapture(GameState& state, Colour colour, Square to) {
    const Capture capture = CaptureOn(state, colour, to);
    if (capture.report == 0) return;
    state.CaptureReport = capture.report;
    state.CapturedColour = ColourOf(capture.victim);
    if (capture.report == 2) {
        // The newcomer takes the victim's slot; the victim waits in slot 3 for its own record.
        std::swap(state.SquareOccupants[to][SlotOf(state, to, capture.victim)],
                  state.SquareOccupants[to][3]);
    }
}

void PlayForward(const GameContext& game, const MoveRecord& record) {
    game.state.CaptureReport = 0;
    if (!MovesAPiece(record)) return;
    const Colour colour = record.MoverColour;
    const PieceCode code = CodeOf(colour, record.Piece);
    Lift(game, colour, code, record.From);
    Travel(game, record, code);
    PutDown(game, colour, code, record.To);
    if (!record.Manual) CheckCapture(game.state, colour, record.To);
}

// --------------------------------------------------------------------------------- backwards

bool MovesPieceTo(const MoveRecord& record, PieceCode code, Square square) {
    return record.Piece != 0 && record.To == square && CodeOf(record.MoverColour, record.Piece) == code;
}

// A captured piece returns from a safe square only after a capture on an exit square.
bool IsReturnOffExit(const MoveRecord& record) {
    return record.OnBehalf != 0 && IsSafeSquare(record.From);
}

// The number of the move, below `before`, that brought the piece to the square; 0 when there is none.
// The pieces on a square stand in their slots in the order of these numbers. A piece that captured on an
// exit square took the victim's slot, so it has the number of the victim's arrival.
Short ArrivalMove(const GameState& state, PieceCode code, Square square, Short before) {
    for (Short move = before; --move >= 1;) {
        if (!MovesPieceTo(state.MoveRecords[move], code, square)) continue;
        const MoveRecord& next = state.MoveRecords[move + 1];
        const bool tookSlot = move + 1 < before && IsReturnOffExit(next) && next.From == square;
        if (!tookSlot) return move;
        code = CodeOf(next.MoverColour, next.Piece);
    }
    return 0;
}

void PutBackInOrderOfArrival(GameState& state, PieceCode code, Square square, Short move) {
    Slots& slots = state.SquareOccupants[square];
    const Short own = ArrivalMove(state, code, square, move);
    Short slot = 1;
    while (slot < 3 && slots[slot] != 0 && ArrivalMove(state, slots[slot], square, move) < own) ++slot;
    for (Short higher = 3; higher > slot; --higher) slots[higher] = slots[higher - 1];
    slots[slot] = code;
}

void PutBack(GameState& state, const MoveRecord& record, PieceCode code, Short move) {
    if (record.From == 0) {
        ++state.PiecesInBox[record.MoverColour];
    } else if (IsReturnOffExit(record)) {
        state.SquareOccupants[record.From][3] = code;
    } else {
        PutBackInOrderOfArrival(state, code, record.From, move);
    }
}

void TakeOffGoal(GameState& state, Colour colour, PieceCode code) {
    const Square goal = GoalSquare[colour];
    Slots& slots = state.SquareOccupants[goal];
    const Short others = --state.PiecesHome[colour];
    if (others == 2) slots[3] = state.GoalLeftover[colour];
    if (others < 2) slots[SlotOf(state, goal, code)] = 0;
}

void TakeOff(GameState& state, const MoveRecord& record, PieceCode code) {
    if (record.To == 0) {
        --state.PiecesInBox[record.MoverColour];
        return;
    }
    if (record.To == GoalSquare[record.MoverColour]) {
        TakeOffGoal(state, record.MoverColour, code);
        return;
    }
    // The last to arrive stands in the highest slot, unless it captured on its exit square: then the
    // victim, which waits in slot 3, gets its slot back.
    Slots& slots = state.SquareOccupants[record.To];
    slots[SlotOf(state, record.To, code)] = slots[3] == code ? PieceCode{0} : slots[3];
    slots[3] = 0;
}

void TakeBack(const GameContext& game, const MoveRecord& record, Short move) {
    GameState& state = game.state;
    state.CaptureReport = 0;
    if (!MovesAPiece(record)) return;
    const PieceCode code = CodeOf(record.MoverColour, record.Piece);
    TakeOff(state, record, code);
    game.outside.LiftPiece(code, record.To);
    PutBack(state, record, code, move);
    state.PiecePosition[record.MoverColour][record.Piece] = record.From;
    game.outside.PutDownPiece(code, record.From);
}

}  // namespace

void ExecuteMove(const GameContext& game, ExecutionMode mode, Short move) {
    // Copied first: events run during the walk and may change the records.
    const MoveRecord record = game.state.MoveRecords[move];
    if (mode == ExecutionMode::Forward) {
        PlayForward(game, record);
    } else {
        TakeBack(game, record, move);
    }
}

}  // namespace zorva
