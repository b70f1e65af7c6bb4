#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "core/Ending.h"
#include "store/SettingsStorage.h"

namespace zorva {

/// Keeps the settings and the game in their file, so that no kill loses more than the move in hand.
/// What is written of a game is always its position at the beginning of a turn: the live state may be
/// in the middle of a move, or back on the recorder's tape.
class GameKeeper {
public:
    GameKeeper(const GameState& state, const Settings& settings) : state_(state), settings_(settings) {}

    /// Called once when a file cannot be written, with what there is to tell; again only after a
    /// write has succeeded.
    std::function<void(const std::string& title, const std::string& text)> Failed;

    /// Reads the settings file of that folder; everything is written there from now on.
    LoadedSettings Load(const std::filesystem::path& folder);

    /// The game is at the beginning of a turn: remembers it and writes it.
    void PositionReached();
    /// There is no game any more: forgets it and writes the settings without one.
    void GameOver();
    /// Writes the settings and the remembered game, and waits for the disk.
    void Save();
    /// Adds a finished game to the history.
    void AppendResult(const GameResult& result);

    const std::filesystem::path& Folder() const { return folder_; }

private:
    void Write(Durability durability);
    void Report(FileError error, const char* fileName);

    const GameState& state_;
    const Settings& settings_;
    GameState kept_;
    std::filesystem::path folder_;
    bool mayWrite_ = false;
    bool failing_ = false;
};

}  // namespace zorva
