#pragma once

#include <filesystem>

#include "app/BoardInput.h"
#include "app/ChancesControl.h"
#include "app/GameKeeper.h"
#include "app/GameRunner.h"
#include "app/Mesa.h"
#include "app/RecorderControl.h"
#include "app/ScreenSaver.h"
#include "app/SoundPlayer.h"
#include "app/WindowOutside.h"

namespace zorva {

/// The running program: one game, its settings, the board window, and the connections between them.
/// Parts that do not know each other are connected here through std::function members.
class Program {
public:
    /// `programFolder` is where the program lies, `dataFolder` where its files lie (ChooseDataFolder).
    Program(const std::filesystem::path& programFolder, const std::filesystem::path& dataFolder);

    /// Shows the title, opens the board behind it, reads the files, and goes on with the game that was
    /// left. Returns when there is no game in progress (any more).
    void Start();

    /// In place of Start: tells the player, in a window and on standard error, that another program has
    /// the data folder. Touches no file. Returns when the player has read it.
    void TellFilesInUse();

    /// Shows the board window in front of everything.
    void ComeToFront();

    /// Called when the player has left the program.
    std::function<void()> Ended;

    /// Saves everything because the system is about to end the program. Shows no window and prints what
    /// it cannot save on standard error. Does not wait for the disk: a program cannot end while one of
    /// its threads waits for it.
    void SaveAtEnd();

    const GameState& State() const { return state_; }
    Mesa& Window() { return mesa_; }

private:
    void ConnectServices();
    void ConnectWindow();
    void ConnectGame();

    void OpenBoard();
    void LoadGame();
    void TellAboutFiles();
    void ContinueGame();

    void ButtonPressed(int button);
    void KeyPressed(const QKeyEvent& key);
    bool RecorderKeyPressed(const QKeyEvent& key);
    bool WindowKeyPressed(int key);
    void SwitchSound();
    bool SpokenKeyPressed(int key);
    void NewGame();
    bool ConfirmNewGame();
    void Leave();
    bool ConfirmExit();
    bool CanAdvise() const;
    bool MayLeave();
    bool SavesOrGivesUp();
    void ShowAdvice();
    void ApplyChoices();
    void Personalize();
    void ShowHistory();
    void ShowChances();

    void AwaitPlayer();
    bool IsPlayerAwaited() const;
    void RemindPlayer();
    void Tell(const QString& title, const QString& text);

    const std::filesystem::path programFolder_, dataFolder_;
    LoadedSettings loaded_;  // with what there is to tell about the files
    Settings settings_;
    GameState state_;
    RecorderState recorder_;
    SoundPlayer sounds_;
    Mesa mesa_;
    WindowOutside outside_;
    GameRunner runner_;
    GameKeeper keeper_;
    BoardInput input_;
    RecorderControl recorderControl_;
    ChancesControl chances_;
    ScreenSaver screenSaver_;
    bool wasAwaited_ = false;   // at the board, when another window came in between
    bool asksToLeave_ = false;  // the question is open or waits for the player
};

}  // namespace zorva
