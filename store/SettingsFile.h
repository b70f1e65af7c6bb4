#pragma once

#include <string>
#include <string_view>
#include <variant>

#include "core/GameState.h"
#include "core/Settings.h"
#include "store/FileError.h"

namespace zorva {

/// The settings file: the players' settings and the game in progress, text in Windows-1252.
inline constexpr const char* SettingsFileName = "ZORVA32.INI";

/// What a settings file holds.
struct SettingsContent {
    Settings settings;
    GameState state;

    bool operator==(const SettingsContent&) const = default;
};

/// The bytes of the settings file for that game: four lines of the colours, the board, the turn with
/// the common settings, and the records of all moves made. `state` is to be a copy from a moment when
/// nothing was thrown or moved yet: a game that goes on later goes on there. A game whose first move
/// is not made yet is written as none; RepeatTurn is always written as true, because the colour on
/// turn is chosen already.
std::string SettingsText(const Settings& settings, const GameState& state);

/// Whether a name may hold the character, and the file give it back: everything that the encoding of
/// the file has, but for double quotes and control characters.
bool CanStandInName(char32_t character);

/// What reading comes to: the whole content, or why the bytes were refused.
using SettingsReading = std::variant<SettingsContent, FileError>;

/// Reads the bytes of a settings file. In the state, MoveRecordCount is the number of the unfinished
/// move as it stands in the file.
SettingsReading ReadSettings(std::string_view bytes);

}  // namespace zorva
