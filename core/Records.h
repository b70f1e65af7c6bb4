#pragma once

#include <string>

#include "core/Outside.h"

namespace zorva {

// ------------------------------------------------------------------------------ writing records

/// Opens the record of the next move: MoveRecordCount rises by one, and the table grows by 40 records
/// when that number is its last. Records from MoveRecordCount on are empty.
void NewMoveRecord(GameState& state);

/// Fills the record MoveRecords[MoveRecordCount] of the move about to be made from the turn fields and
/// adds its log line. ManualShiftMade marks a move by hand, CaptureReport a captured piece's return; any
/// other move is an ordinary one.
void LogMove(const GameContext& game);

/// The record of a captured piece's return from the square `from` to its box; the capture decides all
/// its fields. `captor` is the colour on turn, `repeatState` the RepeatState of the capturing move.
MoveRecord ReturnRecord(PieceCode captured, Square from, Colour captor, Short repeatState);

// ------------------------------------------------------------------------------ reading records

/// The colour whose turn it was when the record was made. It differs from MoverColour when a captured
/// piece returns and when another colour's piece is dragged.
Colour ColourOnTurn(const MoveRecord& record);

/// Whether a piece changes its place: not when the colour passed, nor when a third six punishes a piece
/// that lies in its box already because a person dragged it there.
bool MovesAPiece(const MoveRecord& record);

/// Whether the record follows from the one before it, with neither a throw nor a choice of its own: a
/// captured piece's return, or the second piece out of the box with the five of the first. `move` is a
/// record of the state, from 1.
bool FollowsByItself(const GameState& state, Short move);

/// Whether the move was a bonus of 10 or 20 squares, walked or passed.
bool IsBonus(const MoveRecord& record);

/// Squares of the bonus that is due after the record: 20 when it returned a piece that was captured off
/// an exit square, 10 when it walked a piece onto its goal, else 0.
Short BonusDueAfter(const MoveRecord& record);

/// The number of the colour's latest move below `before` that was no bonus; 0 when there is none. Record
/// 0 is empty: its piece is 0.
Short LatestMoveNoBonus(const GameState& state, Colour colour, Short before);

// -------------------------------------------------------------------------------------- the log

/// The log line of a move, such as "  7 Ama. cuenta 5".
std::string LogLineText(Short moveNumber, const MoveRecord& record);

/// The log's heading of a new game and that of a game that is continued; they differ by design.
inline constexpr const char* NewGameHeading = "Inicio de la partida";
inline constexpr const char* ContinuedGameHeading = "Inicio de partida";

/// Shows the log of a game that was loaded: the moves 1 to `moves`.
void RebuildLog(const GameContext& game, Short moves);

}  // namespace zorva
