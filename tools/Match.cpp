#include "tools/Match.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

#include "core/Ending.h"
#include "core/GameStart.h"
#include "core/SilentOutside.h"
#include "core/Turns.h"
#include "engine/Chance.h"
#include "tools/WithoutPeople.h"

namespace zorva {
namespace {

constexpr std::uint64_t gamesAtOnce = 16;
constexpr auto progressInterval = std::chrono::milliseconds(250);

/// The world of one game of a match: it throws by chance and counts.
class MatchWorld final : public SilentOutside {
public:
    MatchWorld(const GameState& state, std::uint64_t seed, std::uint64_t number, MatchTotals& totals)
        : state_(state), chance_(seed, number), totals_(totals) {}

    bool IsWatched() const override { return false; }
    bool IsFollowed() const override { return false; }
    Short RollFace() override { return chance_.Face(); }

    Colour DrawFirst(const Settings& settings) {
        std::vector<Colour> colours;
        for (Colour colour = 1; colour <= ColourCount; ++colour) {
            if (IsTakingPart(settings, colour)) colours.push_back(colour);
        }
        return colours[chance_.Below(static_cast<std::uint32_t>(colours.size()))];
    }

    /// The result is wanted; the game is told in full at that moment.
    MessageAnswer ShowMessage(std::string_view, std::string_view, Short, MessageButtons) override {
        return MessageAnswer::Accepted;
    }
    void KeepResult(const GameResult& result) override {
        ++totals_.games;
        ++totals_.colours[result.winner].wins;
        totals_.colours[result.winner].points += static_cast<std::uint64_t>(result.points);
        CountMoves();
    }

private:
    void CountMoves() {
        std::uint64_t captures = 0, thirdSixes = 0;
        for (Short move = 1; move <= state_.MoveRecordCount; ++move) {
            const MoveRecord& record = state_.MoveRecords[move];
            captures += record.OnBehalf != 0;
            thirdSixes += (record.Die == 6) & (record.RepeatState == 0);
        }
        const auto moves = static_cast<std::uint64_t>(state_.MoveRecordCount);
        totals_.moves += moves;
        totals_.captures += captures;
        // The way home of a piece is nobody's decision, whether it was captured or a third six sent it.
        totals_.decisions += moves - captures - thirdSixes;
    }

    const GameState& state_;
    Chance chance_;
    MatchTotals& totals_;
};

// How many turns after `first` the colour `last` has its own.
std::size_t TurnsBetween(GameContext game, Colour first, Colour last) {
    std::size_t turns = 0;
    for (game.state.CurrentColour = first; game.state.CurrentColour != last; NextColour(game)) ++turns;
    return turns;
}

/// The games of a match handed out to threads.
class MatchRun {
public:
    explicit MatchRun(const MatchPlan& plan) : plan_(plan) {}

    MatchTotals Play(const std::function<void(std::uint64_t)>& progress) {
        std::vector<std::thread> threads;
        for (unsigned thread = 0; thread < plan_.threads; ++thread) {
            threads.emplace_back([this] { PlayShare(); });
        }
        if (progress) TellUntilDone(progress);
        for (std::thread& thread : threads) thread.join();
        return totals_;
    }

private:
    void PlayShare() {
        MatchTotals mine;
        MatchPlayer player(plan_);
        for (;;) {
            const std::uint64_t first = handedOut_.fetch_add(gamesAtOnce);
            const std::uint64_t last = std::min(first + gamesAtOnce, plan_.games);
            if (first >= last) break;
            for (std::uint64_t number = first; number < last; ++number) player.Play(number, mine);
            finished_ += last - first;
        }
        const std::lock_guard lock(mutex_);
        totals_ += mine;
        ++threadsDone_;
        allDone_.notify_one();
    }

    void TellUntilDone(const std::function<void(std::uint64_t)>& progress) {
        std::unique_lock lock(mutex_);
        while (!allDone_.wait_for(lock, progressInterval,
                                  [this] { return threadsDone_ == plan_.threads; })) {
            progress(finished_);
        }
        progress(finished_);
    }

    const MatchPlan& plan_;
    std::atomic<std::uint64_t> handedOut_ = 0;
    std::atomic<std::uint64_t> finished_ = 0;
    std::mutex mutex_;  // guards what follows
    std::condition_variable allDone_;
    unsigned threadsDone_ = 0;
    MatchTotals totals_;
};

}  // namespace

MatchTotals& MatchTotals::operator+=(const MatchTotals& other) {
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        colours[colour].wins += other.colours[colour].wins;
        colours[colour].points += other.colours[colour].points;
    }
    for (std::size_t turn = 0; turn < winsByTurn.size(); ++turn)
        winsByTurn[turn] += other.winsByTurn[turn];
    games += other.games;
    moves += other.moves;
    captures += other.captures;
    decisions += other.decisions;
    return *this;
}

MatchPlayer::MatchPlayer(const MatchPlan& plan)
    : settings_(WithoutPeople(plan.settings)), seed_(plan.seed) {}

void MatchPlayer::Play(std::uint64_t number, MatchTotals& totals) {
    // Begun anew, as after the start of the program, but for the room that its records have.
    GameState fresh;
    fresh.MoveRecords = std::move(state_.MoveRecords);
    state_ = std::move(fresh);
    MatchWorld world(state_, seed_, number, totals);
    const GameContext game{state_, settings_, world};
    ResetGame(game);
    const Colour first = world.DrawFirst(settings_);
    const std::uint64_t before = totals.games;
    PlayFrom(game, first);
    if (totals.games == before) return;  // it was too long to be finished
    ++totals.winsByTurn[TurnsBetween(game, first, state_.CurrentColour)];
}

MatchTotals PlayMatch(const MatchPlan& plan, const std::function<void(std::uint64_t)>& progress) {
    return MatchRun(plan).Play(progress);
}

}  // namespace zorva
