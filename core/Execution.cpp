#include "core/Execution.h"

#include <utility>

#include "core/Board.h"
#include "core/Rules.h"

namespace zorva {
namespace {

using Slots = std::array<PieceCode, 4>;

Short SlotOf(const Slots& slots, PieceCode code) {
    for (Short slot = 1; slot <= 3; ++slot) {
        if (slots[slot] == code) return slot;
    }
    return 0;
}

// The pieces in the higher slots move down, so that a lone piece always stands in slot 1: capture,
// attack and risk all read slot 1 first. Without a branch, like the next: which slot it is cannot be
// foreseen.
void TakeFromSlots(Slots& slots, PieceCode code) {
    const bool fromFirst = slots[1] == code;
    const bool fromSecond = fromFirst | (slots[2] == code);
    const bool fromThird = fromSecond | (slots[3] == code);
    slots[1] = fromFirst ? slots[2] : slots[1];
    slots[2] = fromSecond ? slots[3] : slots[2];
    slots[3] = fromThird ? PieceCode{0} : slots[3];
}

// A fourth piece on a goal finds no slot; its position alone says where it is.
void PutIntoFirstEmptySlot(Slots& slots, PieceCode code) {
    const bool first = slots[1] == 0;
    const bool second = !first & (slots[2] == 0);
    const bool third = !first & !second & (slots[3] == 0);
    slots[1] = first ? code : slots[1];
    slots[2] = second ? code : slots[2];
    slots[3] = third ? code : slots[3];
}

// ---------------------------------------------------------------------------------- forwards

void Lift(const GameContext& game, Colour colour, PieceCode code, Square from) {
    GameState& state = game.state;
    if (from == 0) {
        --state.PiecesInBox[colour];
        game.show.PlaySound(Sound::Box);
    } else {
        TakeFromSlots(state.SquareOccupants[from], code);
    }
    game.show.LiftPiece(code, from);
}

void StepTo(const GameContext& game, PieceCode code, Square from, Square to) {
    game.show.PlaySound(Sound::Step);
    game.show.StepPiece(code, from, to);
    game.show.StepDelay(80);
}

void Walk(const GameContext& game, Colour colour, PieceCode code, Square from, Square to) {
    Square square = from;
    if (from == 0) {
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

void PutDown(const GameContext& game, Colour colour, PieceCode code, Square to) {
    GameState& state = game.state;
    state.PiecePosition[colour][PieceOf(code)] = to;
    PutIntoFirstEmptySlot(state.SquareOccupants[to], code);
    if (to == GoalSquare[colour]) ++state.PiecesHome[colour];
    game.show.PutDownPiece(code, to);
}

void CheckCapture(GameState& state, Colour colour, Square to) {
    const Capture capture = CaptureOn(state, colour, to);
    if (capture.report == 0) return;
    state.CaptureReport = capture.report;
    state.CapturedColour = ColourOf(capture.victim);
    if (capture.report == 2) {
        // The newcomer takes the victim's slot; the victim waits in slot 3 for its own record.
        Slots& slots = state.SquareOccupants[to];
        std::swap(slots[SlotOf(slots, capture.victim)], slots[3]);
    }
}

// The way home is shown as one step from the square into the box.
void ReturnToBox(const GameContext& game, Colour colour, PieceCode code, Square from) {
    GameState& state = game.state;
    const bool isPenalty = state.SixesInRow == 3;
    if (isPenalty) game.show.Pause(45);
    game.show.PlaySound(Sound::SentHome);
    game.show.StepPiece(code, from, 0);
    game.show.Pause(isPenalty ? 55 : 45);
    game.show.Pause(20);
    state.PiecePosition[colour][PieceOf(code)] = 0;
    ++state.PiecesInBox[colour];
    game.show.PutDownPiece(code, 0);
}

void PlayForward(const GameContext& game, const MoveRecord& record) {
    GameState& state = game.state;
    state.CaptureReport = 0;
    if (record.Piece == 0) return;
    // Read at once: while the piece walks, the window may be painted, and nothing is to hang on the
    // table.
    const Colour colour = record.MoverColour;
    const PieceCode code = CodeOf(colour, record.Piece);
    const Square from = record.From, to = record.To;
    const bool byHand = record.Manual != No;
    Lift(game, colour, code, from);
    if (to == 0) {
        ReturnToBox(game, colour, code, from);
        return;
    }
    if (!byHand && game.show.IsWatched()) Walk(game, colour, code, from, to);
    PutDown(game, colour, code, to);
    if (!byHand) CheckCapture(state, colour, to);
}

// --------------------------------------------------------------------------------- backwards

bool MovesPieceTo(const MoveRecord& record, PieceCode code, Square square) {
    return record.Piece != 0 && record.To == square && CodeOf(record.MoverColour, record.Piece) == code;
}

// A captured piece's way home from a safe square: nothing but a capture on an exit square ends there.
bool IsExitCaptureVictim(const MoveRecord& record) {
    return record.OnBehalf != 0 && IsSafeSquare(record.From);
}

// How long a piece has stood on its square: the number of the move that brought it there, looked up
// among the moves before `before`. Slots are kept in this order. Who captured on an exit square took
// the victim's slot, and with it the victim's place in the order.
Short Seniority(const GameState& state, PieceCode code, Square square, Short before) {
    for (Short move = before; --move >= 1;) {
        if (!MovesPieceTo(state.MoveRecords[move], code, square)) continue;
        const MoveRecord& next = state.MoveRecords[move + 1];
        const bool tookSlot = move + 1 < before && IsExitCaptureVictim(next) && next.From == square;
        if (!tookSlot) return move;
        code = CodeOf(next.MoverColour, next.Piece);
    }
    return 0;
}

void PutBackBySeniority(GameState& state, PieceCode code, Square square) {
    Slots& slots = state.SquareOccupants[square];
    const Short number = state.MoveRecordCount;
    const Short own = Seniority(state, code, square, number);
    Short slot = 1;
    while (slot < 3 && slots[slot] != 0 && Seniority(state, slots[slot], square, number) < own) ++slot;
    for (Short higher = 3; higher > slot; --higher) slots[higher] = slots[higher - 1];
    slots[slot] = code;
}

void PutBack(GameState& state, const MoveRecord& record, PieceCode code) {
    if (record.From == 0) {
        ++state.PiecesInBox[record.MoverColour];
    } else if (IsExitCaptureVictim(record)) {
        state.SquareOccupants[record.From][3] = code;
    } else {
        PutBackBySeniority(state, code, record.From);
    }
}

void TakeOffGoal(GameState& state, Colour colour, PieceCode code) {
    Slots& slots = state.SquareOccupants[GoalSquare[colour]];
    const Short others = --state.PiecesHome[colour];
    if (others == 2) slots[3] = state.GoalLeftover[colour];
    if (others < 2) slots[SlotOf(slots, code)] = 0;
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
    // piece that waits in slot 3 has its own slot back.
    Slots& slots = state.SquareOccupants[record.To];
    slots[SlotOf(slots, code)] = slots[3] == code ? PieceCode{0} : slots[3];
    slots[3] = 0;
}

void TakeBack(const GameContext& game, const MoveRecord& record) {
    GameState& state = game.state;
    state.CaptureReport = 0;
    if (record.Piece == 0) return;
    const PieceCode code = CodeOf(record.MoverColour, record.Piece);
    TakeOff(state, record, code);
    game.show.LiftPiece(code, record.To);
    PutBack(state, record, code);
    state.PiecePosition[record.MoverColour][record.Piece] = record.From;
    game.show.PutDownPiece(code, record.From);
}

}  // namespace

void ExecuteMove(const GameContext& game, ExecutionMode mode) {
    const MoveRecord& record = game.state.MoveRecords[game.state.MoveRecordCount];
    if (mode == ExecutionMode::Forward) {
        PlayForward(game, record);
    } else {
        TakeBack(game, record);
    }
}

}  // namespace zorva
