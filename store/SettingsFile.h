#pragma once

#include <string>
#include <string_view>
#include <variant>

#include "core/GameState.h"
#include "core/Settings.h"
#include "store/FileError.h"

namespace zorva {

// The settings file: the settings and the game in progress, as text in Windows-1252.
// docs/file-formats.md describes it field by field.

inline constexpr const char* SettingsFileName = "ZORVA32.INI";

/// What a settings file holds.
struct SettingsContent {
    Settings settings;
    GameState state;

    bool operator==(const SettingsContent&) const = default;
};

/// The bytes of the settings file: four colour lines, the board line, the game line with the common
/// settings, and a line for each move made.
///
/// `state` must be a copy taken when a throw was awaited, before the die was thrown: the game will
/// continue from there. If its first move has not been made, the file says that no game is in progress.
/// RepeatTurn is always written as true: the colour on turn has been chosen and must not be passed over
/// when the game continues.
std::string SettingsText(const Settings& settings, const GameState& state);

/// Whether a name may hold the character, and the file give it back: everything that the encoding of
/// the file has, but for double quotes and control characters.
bool CanStandInName(char32_t character);

/// The whole content, or the reason why the bytes were refused.
using SettingsReading = std::variant<SettingsContent, FileError>;

/// Reads the bytes of a settings file and changes nothing else. Refuses any bytes that the game could
/// not have written: numbers outside their range, a board that contradicts the positions, records that
/// break the rules or lead elsewhere. A blank name becomes the colour's default name; if no colour takes
/// part, all four do. In the resulting state MoveRecordCount is the number of the unfinished move, as in
/// the file (ContinueGame in core/GameStart.h goes on from there).
SettingsReading ReadSettings(std::string_view bytes);

}  // namespace zorva
