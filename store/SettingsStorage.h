#pragma once

#include <filesystem>
#include <string>

#include "store/FileReplacement.h"
#include "store/SettingsFile.h"

namespace zorva {

/// How the settings file was found at the start.
enum class LoadOutcome {
    Loaded,   ///< it was good
    Created,  ///< there was none; the defaults were taken and written
    Damaged,  ///< it could not be used; the defaults were taken and the file was kept aside
};

/// The settings and the game to start with, and what there is to tell about them.
struct LoadedSettings {
    LoadOutcome outcome = LoadOutcome::Loaded;
    SettingsContent content;
    /// The message for the player; both empty when there is nothing to tell.
    std::string title;
    std::string text;
    /// Why the file was refused.
    FileError error = FileError::None;
    /// Why a new file with the defaults could not be written in its place.
    FileError writeError = FileError::None;
    /// Where the damaged file is now; empty when it is still in its place, and then nothing was
    /// written over it.
    std::filesystem::path keptAs;
};

/// Reads the settings file of that folder. Throws nothing, whatever is found there.
LoadedSettings LoadSettings(const std::filesystem::path& folder) noexcept;

/// Replaces the settings file of that folder; for `state` see SettingsText. Throws nothing.
FileError SaveSettings(const std::filesystem::path& folder, const Settings& settings,
                       const GameState& state, Durability durability) noexcept;

}  // namespace zorva
