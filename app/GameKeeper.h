#pragma once

#include <QTimer>
#include <chrono>
#include <filesystem>
#include <functional>
#include <future>
#include <string>

#include "core/Ending.h"
#include "store/HistoryFile.h"
#include "store/SettingsStorage.h"

namespace zorva {

/// Keeps the settings, the game and the results of finished games in their two files, so that a kill
/// loses no more than the move in progress and a power cut no more than the last ten seconds.
///
/// The position before the last throw or bonus move is remembered, and only that is written: the live
/// state may be in the middle of a move, or the recorder may show an earlier position. What a failing
/// disk does not take stays in memory and is tried again at each write and every few seconds.
///
/// No call but SaveToLeave waits for the disk, which may take seconds or hang: a thread does that.
class GameKeeper {
public:
    using Duration = std::chrono::milliseconds;

    /// `later` is how long after a write the disk is asked to keep it, and a failed write tried again.
    GameKeeper(const GameState& state, const Settings& settings,
               Duration later = std::chrono::seconds(5));

    /// Called with a message for the player when a file cannot be written: for each file once in each
    /// series of failures, which a success ends. Only PositionReached, GameOver, Save and AppendResult
    /// call it.
    std::function<void(const std::string& title, const std::string& text)> Failed;

    /// Reads the settings file of that folder, to which everything is written from now on. If the file
    /// is damaged and cannot be kept aside either, it is never written. The caller tells the player.
    LoadedSettings Load(const std::filesystem::path& folder);
    /// Whether the settings and the game may be written at all.
    bool MayWrite() const { return mayWrite_; }

    /// A move has ended: remembers and writes the game as Outside::PositionReached hands it over.
    void PositionReached(const GameState& position);
    /// The game has ended or was given up: writes the settings without a game.
    void GameOver();
    /// Writes the settings and the remembered game.
    void Save();
    /// Adds a finished game to the history.
    void AppendResult(const GameResult& result);

    /// Whether the remembered game has a finished move, without which no game is kept.
    bool HasGame() const { return kept_.GameInProgress && kept_.MoveRecordCount >= 2; }
    /// Writes all that is unwritten. Returns what would be lost if the program ended now, as sentences
    /// for the player; nothing if all is kept.
    std::string SaveNow();
    /// The same, and waits for the disk, at most so long.
    std::string SaveToLeave(Duration patience);

    const std::filesystem::path& Folder() const { return folder_; }

private:
    /// How it stands with one of the files.
    struct File {
        const char* name;
        FileError written = FileError::None;  // by the last write
        FileError flushed = FileError::None;  // by the last wait for the disk
        bool told = false;                    // the player knows of this failure

        FileError Error() const { return written != FileError::None ? written : flushed; }
    };
    struct FlushErrors {
        FileError settings, history;
    };

    void Write();
    void TellFailure(File& file, bool gameGoesOn);
    void TryAgainAndFlush();
    bool IsFlushing() const;
    void BeginFlush();
    void TakeFlushErrors();
    bool IsGameKept() const;
    std::string Lost() const;

    const GameState& state_;
    const Settings& settings_;
    GameState kept_;
    HistoryWriter results_;
    std::filesystem::path folder_;
    bool mayWrite_ = false;
    File settingsFile_{SettingsFileName};
    File historyFile_{HistoryFileName};
    QTimer later_;
    std::future<FlushErrors> flush_;  // of the thread that waits for the disk
};

}  // namespace zorva
