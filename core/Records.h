#pragma once

#include <string>

#include "core/Outside.h"

namespace zorva {

/// Opens the record of the next move, which is empty as all behind it: MoveRecordCount rises by one, and
/// the table by 40 records whenever it is full.
void NewMoveRecord(GameState& state);

/// Fills the record of the move about to be made from the turn fields and adds its log line.
void LogMove(const GameContext& game);

/// The log line of a move, such as "  7 Ama. cuenta 5".
std::string LogLineText(Short moveNumber, const MoveRecord& record);

/// The log's heading of a new game and that of a game that is continued; they differ by design.
inline constexpr const char* NewGameHeading = "Inicio de la partida";
inline constexpr const char* ContinuedGameHeading = "Inicio de partida";

/// Builds the log again from the records of a game that was loaded.
void RebuildLog(const GameContext& game);

}  // namespace zorva
