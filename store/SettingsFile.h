#pragma once

#include <optional>
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
/// A game in progress continues from `state`, which must be a copy taken when PositionReached
/// (core/Outside.h) was called: the colour on turn is chosen, and its throw or bonus move has not been
/// made. Before the first move the file says that no game is in progress. RepeatTurn is always written
/// as Yes, so that the turn does not pass to the next colour when the game continues.
std::string SettingsText(const Settings& settings, const GameState& state);

/// Whether a player's name may contain the character: any character of the file's encoding except double
/// quotes and control characters. The file gives such a name back unchanged.
bool CanStandInName(char32_t character);

/// The complete content, or the reason why the bytes were refused.
using SettingsReading = std::variant<SettingsContent, FileError>;

/// Reads the bytes of a settings file. Refuses any bytes that the game could
/// not have written: numbers outside their range, a board that contradicts the positions, records that
/// break the rules or lead elsewhere. FieldReader says how freely numbers, texts and lines may stand. A
/// name that is too long is cut, and a blank one becomes the colour's default name; if no colour takes
/// part, all four do. A game in progress may be won; then its last record is the winning move. In the
/// resulting state MoveRecordCount is the number of the unfinished move, as in the file (ContinueGame in
/// core/GameStart.h goes on from there).
SettingsReading ReadSettings(std::string_view bytes);

/// Reads only the settings and passes over the fields and lines of the game, so that a damaged game does
/// no harm. Returns nothing if a setting is damaged or a line of settings has too few or too many
/// fields.
std::optional<Settings> ReadSettingsAlone(std::string_view bytes);

}  // namespace zorva
