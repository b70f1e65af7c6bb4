#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "core/Ending.h"
#include "store/SettingsStorage.h"

namespace zorva {

/// Keeps the settings and the game in their file, so that a kill loses no more than the move in
/// progress.
///
/// The position before the last throw or bonus move is remembered, and only that is written: the live
/// state may be in the middle of a move, or the recorder may show an earlier position.
class GameKeeper {
public:
    GameKeeper(const GameState& state, const Settings& settings) : state_(state), settings_(settings) {}

    /// Called with a message for the player when a file cannot be written: once for each series of
    /// failures, which a successful write ends.
    std::function<void(const std::string& title, const std::string& text)> Failed;

    /// Reads the settings file of that folder, to which everything is written from now on. If the file
    /// is damaged and cannot be kept aside either, nothing is written at all.
    LoadedSettings Load(const std::filesystem::path& folder);

    /// A move has ended: remembers and writes the game as Outside::PositionReached hands it over. Does
    /// not wait for the disk.
    void PositionReached(const GameState& position);
    /// The game has ended or was given up: writes the settings without a game, and waits for the disk.
    void GameOver();
    /// Writes the settings and the remembered game, and waits for the disk.
    void Save();
    /// The same at the end of the session: when it fails there is nobody to tell, and nothing is asked.
    void SaveAtEnd();
    /// Adds a finished game to the history.
    void AppendResult(const GameResult& result);

    /// Whether the remembered game has a finished move, without which no game is kept.
    bool HasGame() const { return kept_.GameInProgress && kept_.MoveRecordCount >= 2; }

    const std::filesystem::path& Folder() const { return folder_; }

private:
    void Write(Durability durability);
    void Report(FileError error, const char* fileName);

    const GameState& state_;
    const Settings& settings_;
    GameState kept_;
    std::filesystem::path folder_;
    bool mayWrite_ = false;
    bool failing_ = false;  // the last write has failed, and the player knows
};

}  // namespace zorva
