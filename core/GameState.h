#pragma once

#include <vector>

#include "core/Settings.h"
#include "core/Types.h"

namespace zorva {

/// The record of one move; the log, the recorder and the saved game are made of these.
struct MoveRecord {
    Short MoverColour = 0;      ///< colour whose piece moved
    Short FollowingColour = 0;  ///< colour on turn when another colour's piece moved, else 0
    Short Die = 0;              ///< face thrown; 0 for bonus moves, captured pieces, moves by hand
    Short Count = 0;            ///< squares walked (the log says "cuenta")
    Short Piece = 0;            ///< piece 1..4, 0 when the colour passed
    Short From = 0;             ///< square left, 0 = the waiting box
    Short To = 0;               ///< square reached, 0 = back to the waiting box
    Short RepeatState = 0;      ///< sixes in a row at this move, 0..2 (a third is stored as 0)
    Short Manual = 0;           ///< Yes for a piece dragged by hand
    Short OnBehalf = 0;         ///< 1 when a captured piece returns to its box
    /// Yes when the recorder can restore the position just before this move. No for a bonus move, a
    /// captured piece's return, the second piece out with one five and any move with RepeatState 2.
    Short TurnEnd = 0;

    bool operator==(const MoveRecord&) const = default;
};

/// The complete game as one value: a copy remembers it, and comparing two shows whether a move was
/// taken back exactly.
struct GameState {
    // Where the pieces stand. Only move execution, a new game and the loading of a game change these.
    PerColour<PerPiece<Square>> PiecePosition{};  ///< authoritative; the other tables follow from it
    /// [square][slot 1..3]. Slots 1 and 2 are the normal places. Slot 3 holds a piece that was captured
    /// on an exit square until it returns to its box, and the third piece on a goal; a fourth piece on a
    /// goal stands in no slot.
    std::array<std::array<PieceCode, 4>, LastSquare + 1> SquareOccupants{};
    PerColour<Short> PiecesInBox{0, 4, 4, 4, 4};
    PerColour<Short> PiecesHome{};
    /// The code that an earlier game left in slot 3 of each colour's goal, 0 for none. Where there is
    /// one, the third piece to reach the goal gets no slot, and taking that move back keeps the code.
    PerColour<PieceCode> GoalLeftover{};

    // Whose turn it is and what was thrown.
    Colour CurrentColour = 0;
    Short DieValue = 0;       ///< 1..6 as thrown, 0 when nothing was thrown for this move
    Short MoveCount = 0;      ///< squares that the next move walks: the die's count or a bonus
    Short SixValue = 12;      ///< squares of a six with no piece in the box: 7 or 12
    Short PlayDirection = 1;  ///< +1 colours follow 1, 2, 3, 4; -1 they follow 4, 3, 2, 1
    Short SixesInRow = 0;     ///< 0..3
    Short GameInProgress = No;
    Short RepeatTurn = No;       ///< the same colour plays again after this move
    Short ThrowNext = Yes;       ///< No: a bonus move with MoveCount already set comes next
    Short WaitingForThrow = No;  ///< the driver waits for the click that throws
    Short WaitingForMove = No;   ///< the driver waits for a person to choose a piece

    // The move about to be executed, and its result.
    Short MovePiece = 0;  ///< 1..4, 0 = no move
    Square MoveFrom = 0;
    Square MoveTo = 0;
    Short CaptureReport = 0;    ///< 0 none, 1 ordinary capture, 2 capture on one's own exit square
    Colour CapturedColour = 0;  ///< valid while CaptureReport is not 0
    /// 0 normally, 1 when a second piece leaves the box with the same throw, 2 when it has left.
    Short SecondMovePending = 0;

    // A piece dragged by hand while the throw is awaited.
    Short ManualMode = No;
    Short ManualShiftMade = No;
    Colour ManualShiftColour = 0;  ///< colour on turn when manual mode was switched on

    // What the computer player found for the colour on turn.
    Short BestPiece = 0;  ///< 0 = no legal move
    Square BestFrom = 0;
    Square BestTo = 0;
    Short LegalMoveCount = 0;
    PerPiece<Short> MovablePieces{};  ///< Yes for each piece that may be moved

    /// Records of the moves, indexed by move number from 1; record 0 stays empty.
    std::vector<MoveRecord> MoveRecords = std::vector<MoveRecord>(41);
    Short MoveRecordCount = 0;  ///< number of the current, unfinished move

    bool operator==(const GameState&) const = default;

    Square PositionOf(PieceCode code) const { return PiecePosition[ColourOf(code)][PieceOf(code)]; }
};

/// Copies from the settings what they decide of the state: PlayDirection and SixValue.
inline void ApplySettings(GameState& state, const Settings& settings) {
    state.PlayDirection = PlayDirectionOf(settings);
    state.SixValue = SixValueOf(settings);
}

}  // namespace zorva
