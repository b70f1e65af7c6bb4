#include "tools/Match.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

namespace zorva {
namespace {

constexpr std::uint64_t gamesAtOnce = 16;
constexpr auto progressInterval = std::chrono::milliseconds(250);

// How many turns after `first` the colour `last` has its own.
std::size_t TurnsBetween(const Settings& settings, Colour first, Colour last) {
    std::size_t turns = 0;
    for (Colour colour = first; colour != last;) {
        colour = static_cast<Colour>(
            (colour - 1 + PlayDirectionOf(settings) + ColourCount) % ColourCount + 1);
        turns += IsTakingPart(settings, colour);
    }
    return turns;
}

// A game that grew too long to be finished does not count.
void AddGame(MatchTotals& totals, const Settings& settings, const GameTotals& game) {
    if (game.winner == 0) return;
    ++totals.games;
    ++totals.colours[game.winner].wins;
    totals.colours[game.winner].points += static_cast<std::uint64_t>(game.points);
    ++totals.winsByTurn[TurnsBetween(settings, game.first, game.winner)];
    totals.moves += static_cast<std::uint64_t>(game.moves);
    totals.captures += static_cast<std::uint64_t>(game.captures);
    totals.decisions += static_cast<std::uint64_t>(game.decisions);
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
        const MatchGames games(plan_);
        for (;;) {
            const std::uint64_t first = handedOut_.fetch_add(gamesAtOnce);
            const std::uint64_t last = std::min(first + gamesAtOnce, plan_.games);
            if (first >= last) break;
            for (std::uint64_t number = first; number < last; ++number) {
                AddGame(mine, plan_.settings,
                        plan_.byTheBook ? games.PlayByTheBook(number) : games.PlayByEngine(number));
            }
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

MatchTotals PlayMatch(const MatchPlan& plan, const std::function<void(std::uint64_t)>& progress) {
    return MatchRun(plan).Play(progress);
}

}  // namespace zorva
