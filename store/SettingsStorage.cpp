#include "store/SettingsStorage.h"

#include <new>
#include <optional>

namespace zorva {
namespace {

/// Bytes. The file of the longest game (32,700 moves of 20 bytes each) has two thirds as many.
constexpr std::size_t longestFile = 1 << 20;

constexpr const char* creationNotice =
    "No se encuentra el fichero de inicialización ZORVA32.INI. Se ha procedido a crearlo "
    "automáticamente con los valores establecidos por defecto.";

SettingsContent DefaultContent() {
    SettingsContent content;
    ApplySettings(content.state, content.settings);
    return content;
}

FileError Write(const std::filesystem::path& folder, const SettingsContent& content) {
    return SaveSettings(folder, content.settings, content.state, Durability::Lazy);
}

// A first start. If the defaults cannot be written, the game starts with them all the same.
LoadedSettings Create(const std::filesystem::path& folder) {
    LoadedSettings created;
    created.outcome = LoadOutcome::Created;
    created.content = DefaultContent();
    created.writeError = Write(folder, created.content);
    if (created.writeError == FileError::None) {
        created.title = LoadErrorTitle;
        created.text = creationNotice;
    }
    return created;
}

// The defaults, with a message that says why; touches no file.
LoadedSettings Refused(const std::filesystem::path& folder, FileError error) {
    LoadedSettings refused;
    refused.outcome = LoadOutcome::Damaged;
    refused.content = DefaultContent();
    refused.title = LoadErrorTitle;
    refused.text = LoadErrorText(error, folder.string());
    refused.writeError = error;
    return refused;
}

std::string WhatWasKept(bool settingsKept, const std::filesystem::path& rest) {
    const std::string kept =
        settingsKept
            ? "Los jugadores y los ajustes se conservan, pero la partida no se puede leer."
            : "No se pueden leer los ajustes ni la partida: se empieza con los valores por defecto.";
    return kept + " El fichero dañado queda en " + rest.string() + ".";
}

// A damaged file may still hold most of a player's game. It is never deleted, and another is written in
// its place only after it has been renamed. The bytes are empty if they could not be read.
LoadedSettings RefusedAndRenamed(const std::filesystem::path& folder, FileError error,
                                 std::string_view bytes = {}) {
    LoadedSettings refused = Refused(folder, error);
    const std::optional<Settings> settings = ReadSettingsAlone(bytes);
    if (settings) refused.content.settings = *settings;
    ApplySettings(refused.content.state, refused.content.settings);
    refused.writeError = SetAside(folder / SettingsFileName, refused.keptAs);
    refused.explanation = WhatWasKept(
        settings.has_value(), refused.keptAs.empty() ? folder / SettingsFileName : refused.keptAs);
    if (!refused.keptAs.empty()) refused.writeError = Write(folder, refused.content);
    return refused;
}

LoadedSettings Load(const std::filesystem::path& folder) {
    std::string bytes;
    const FileError error = ReadWholeFile(folder / SettingsFileName, longestFile, bytes);
    // The error is the same for a missing file and a missing folder. Only a missing file is a first
    // start.
    if (error == FileError::PathNotFound) {
        std::error_code ignored;
        return std::filesystem::is_directory(folder, ignored) ? Create(folder) : Refused(folder, error);
    }
    if (error != FileError::None) return RefusedAndRenamed(folder, error);
    SettingsReading reading = ReadSettings(bytes);
    if (const auto* damage = std::get_if<FileError>(&reading)) {
        return RefusedAndRenamed(folder, *damage, bytes);
    }
    LoadedSettings loaded;
    loaded.content = std::move(std::get<SettingsContent>(reading));
    return loaded;
}

}  // namespace

LoadedSettings LoadSettings(const std::filesystem::path& folder) noexcept {
    try {
        return Load(folder);
    } catch (const std::bad_alloc&) {
        // The file may be good: it is neither renamed nor replaced.
        return Refused(folder, FileError::OutOfMemory);
    }
}

bool IsStored(const std::filesystem::path& folder, const Settings& settings,
              const GameState& state) noexcept {
    try {
        std::string bytes;
        ReadWholeFile(folder / SettingsFileName, longestFile, bytes);
        const SettingsReading reading = ReadSettings(bytes);
        const auto* read = std::get_if<SettingsContent>(&reading);
        SettingsContent stored = read != nullptr ? *read : DefaultContent();
        if (const auto alone = ReadSettingsAlone(bytes)) stored.settings = *alone;
        return SettingsText(stored.settings, stored.state) == SettingsText(settings, state);
    } catch (const std::bad_alloc&) {
        return false;
    }
}

FileError SaveSettings(const std::filesystem::path& folder, const Settings& settings,
                       const GameState& state, Durability durability) noexcept {
    try {
        return ReplaceFile(folder / SettingsFileName, SettingsText(settings, state), durability);
    } catch (const std::bad_alloc&) {
        return FileError::OutOfMemory;
    }
}

}  // namespace zorva
