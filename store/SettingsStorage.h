#pragma once

#include <filesystem>
#include <string>

#include "store/FileReplacement.h"
#include "store/SettingsFile.h"

namespace zorva {

/// What LoadSettings found.
enum class LoadOutcome {
    Loaded,   ///< a good file
    Created,  ///< no file: the content is the defaults, and they were written if possible
    /// An unusable file or no folder: the content is the defaults, but the settings are those of the
    /// file if it is only its game that cannot be used. See keptAs.
    Damaged,
};

/// The settings and the game to start with, and the message to the player about them, if any.
struct LoadedSettings {
    LoadOutcome outcome = LoadOutcome::Loaded;
    SettingsContent content;
    /// The message to the player. Both are empty if all is well.
    std::string title;
    std::string text;
    /// What was kept of an unusable file and where the rest lies, for a second message. Empty otherwise.
    std::string explanation;
    /// Why the content could not be written or may not be, as when a Damaged file could not be renamed.
    /// None if all is well.
    FileError writeError = FileError::None;
    /// The new path of a Damaged file. Empty if it could not be renamed, if the folder is missing or if
    /// memory ran out: nothing was written then, and the caller must not write the file either.
    std::filesystem::path keptAs;
};

/// Reads the settings file in that folder. A missing file is created with the defaults. A damaged one is
/// renamed (see SetAside) and replaced by one with the content returned. If the folder itself is
/// missing, nothing is created. Throws nothing.
LoadedSettings LoadSettings(const std::filesystem::path& folder) noexcept;

/// Whether the next start would find these settings and this game. What cannot be read of the file it
/// finds as the defaults have it. Throws nothing.
bool IsStored(const std::filesystem::path& folder, const Settings& settings,
              const GameState& state) noexcept;

/// Replaces the settings file in that folder. SettingsText says from which moment `state` must be. On an
/// error the old file is unchanged. Throws nothing.
FileError SaveSettings(const std::filesystem::path& folder, const Settings& settings,
                       const GameState& state, Durability durability) noexcept;

}  // namespace zorva
