#pragma once

#include <QObject>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>

#include "app/GameWork.h"
#include "app/PositionWork.h"

namespace zorva {

/// What is to be analysed: copies, so that the game goes on meanwhile.
struct AnalysisTask {
    GameState game;  ///< as PositionReached (core/Outside.h) handed it over, with at least move number 1
    Settings settings;
    std::size_t shown = 0;               ///< the record whose end the board shows
    bool onTape = false;                 ///< the recorder shows it
    std::optional<engine::Moment> live;  ///< the position shown, if it is not the one after that record
    std::uint64_t ofPosition = 0;        ///< play-outs from the position shown; 0 leaves it out
    bool ofGame = false;                 ///< whether the whole game is wanted, too
};

/// Analyses positions and games in threads of its own, and tells the window's thread what it has found
/// as it gets more precise. The first numbers come within a tenth of a second.
///
/// All calls are for one thread, which runs events; none of them waits for a play-out. What the other
/// threads need they get as copies.
class Analyst : public QObject {
public:
    /// Of a game, `ofGame` play-outs are made from each moment. Leaves one processor to the game.
    explicit Analyst(std::uint64_t ofGame = 3'000);
    /// Waits until the play-outs under way have broken off, which takes some milliseconds.
    ~Analyst() override;

    // Called with what was found out about the task that was given last.
    std::function<void(const PositionReport&)> PositionTold;
    std::function<void(const GameReport&)> GameTold;

    /// Breaks off what it does and takes that task. Of a game that it has analysed before it keeps what
    /// is still good.
    void Analyse(AnalysisTask task);
    /// Drops the task. The analyst calls neither function any more, and its thread waits.
    void Rest();
    /// Whether it has a task that is not finished.
    bool IsAtWork() const;

protected:
    bool event(QEvent* event) override;

private:
    void GiveTask(std::optional<AnalysisTask> task);
    void Run(const std::stop_token& end);
    void AnalysePosition(const AnalysisTask& task, const std::stop_token& stop);
    void AnalyseGame(const AnalysisTask& task, const std::stop_token& stop);
    template <typename Work, typename Report>
    void Sharpen(Work& work, const std::stop_token& stop, const Report& report);
    template <typename Report>
    void Tell(std::optional<Report>& place, Report report, const std::stop_token& stop);

    const unsigned threads_;
    GameWork game_;  // of the thread alone

    mutable std::mutex mutex_;
    // Guarded by the mutex:
    std::condition_variable_any given_;
    std::optional<AnalysisTask> next_;  // given and not begun
    bool isAtWork_ = false;
    std::stop_source current_;  // of the task given last
    std::optional<PositionReport> positionReport_;
    std::optional<GameReport> gameReport_;

    std::jthread thread_;  // since the first task; last, so that it ends before all else goes
};

}  // namespace zorva
