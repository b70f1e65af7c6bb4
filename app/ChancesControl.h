#pragma once

#include <QPointer>
#include <QTimer>
#include <functional>

#include "app/Analyst.h"
#include "core/Recorder.h"
#include "dialogs/Probabilidades.h"

namespace zorva {

class BoardInput;
class Mesa;
class RecorderControl;

/// Opens the window of chances and has analysed what it shows: the position on the board, that of the
/// recorder, or the whole game. Nothing is analysed while the window is closed, unless the player wants
/// the chances on the cards. The game itself never asks for any of it.
///
/// A finished game stays open to it until the next one has begun.
class ChancesControl {
public:
    ChancesControl(const GameState& state, const Settings& settings, const RecorderState& recorder,
                   RecorderControl& recorderControl, BoardInput& input, Mesa& mesa);
    ~ChancesControl();
    ChancesControl(const ChancesControl&) = delete;
    ChancesControl& operator=(const ChancesControl&) = delete;

    /// Opens the window, or closes it. A modal one is closed when this returns.
    void Toggle();

    /// A move has ended: the game as Outside::PositionReached hands it over.
    void PositionReached(const GameState& position);
    /// Must be called when a wait for the player begins, when the recorder has moved, and when settings
    /// have changed.
    void Refresh();
    /// The board has another layout: a window beside it opens anew.
    void LayoutChanged();

    /// The game that is played, or else the one that was played last, with its records; null when there
    /// was none.
    const GameState* LatestGame() const;

    /// Whether anything is being analysed.
    bool IsAtWork() const { return analyst_.IsAtWork(); }

private:
    void Open(Probabilidades::Page page);
    void Closed();
    AnalysisTask TaskNow() const;
    void Show(const PositionReport& report);
    void ShowDice(const AnalysisTask& task);
    void TellWhenStill(std::function<void()> news);
    void TellNews();

    /// What a task is about: the same again is no new task.
    struct Subject {
        std::size_t record = 0;
        bool onTape = false;
        Colour colour = 0;
        Short sixes = 0, count = 0;
        std::uint64_t ofPosition = 0;
        bool ofGame = false, ofDice = false;
        Settings settings;
        bool operator==(const Subject&) const = default;
    };
    Subject SubjectOf(const AnalysisTask& task) const;
    bool Shows(Probabilidades::Page page) const;

    const GameState& state_;
    const Settings& settings_;
    const RecorderState& recorder_;
    RecorderControl& recorderControl_;
    BoardInput& input_;
    Mesa& mesa_;
    GameState reached_;        // the position handed over last
    Settings settingsOfGame_;  // those of that game, which may be over
    std::optional<Subject> subject_;
    std::function<void()> news_;  // the latest, while something moves on the board
    QTimer still_;
    bool isOnCards_ = false;
    Probabilidades::Page page_ = Probabilidades::Page::Now;
    QPointer<Probabilidades> window_;
    Analyst analyst_;
};

}  // namespace zorva
