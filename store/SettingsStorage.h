#pragma once

#include <filesystem>
#include <string>

#include "store/FileReplacement.h"
#include "store/SettingsFile.h"

namespace zorva {

/// How the settings file was found at the start.
enum class LoadOutcome {
    Loaded,   ///< it was good
    Created,  ///< there was none: the content is the defaults, and they were written
    Damaged,  ///< it could not be used: the content is the defaults, and the file was renamed if
              ///< possible
};

/// The settings and the game to start with, and the message to the player about them, if any.
struct LoadedSettings {
    LoadOutcome outcome = LoadOutcome::Loaded;
    SettingsContent content;
    /// The message to the player. Both are empty if all is well.
    std::string title;
    std::string text;
    /// Why a Damaged file was refused.
    FileError error = FileError::None;
    /// Why the file with the defaults could not be written; None if it was, or if nothing was tried.
    FileError writeError = FileError::None;
    /// The new path of a Damaged file. Empty if it could not be renamed; nothing was written over it
    /// then, and the caller must not write over it either.
    std::filesystem::path keptAs;
};

/// Reads the settings file in that folder. A missing file is created with the defaults. A damaged one is
/// renamed (see SetAside) and replaced by one with the defaults. If the folder itself is missing,
/// nothing is created. Throws nothing.
LoadedSettings LoadSettings(const std::filesystem::path& folder) noexcept;

/// Replaces the settings file in that folder. SettingsText says from which moment `state` must be. On an
/// error the old file is unchanged. Throws nothing.
FileError SaveSettings(const std::filesystem::path& folder, const Settings& settings,
                       const GameState& state, Durability durability) noexcept;

}  // namespace zorva
