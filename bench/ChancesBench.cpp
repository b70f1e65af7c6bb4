// zorva-chances-bench: what chances cost, as multiples of the time that whole games take in the same
// run.

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <functional>
#include <vector>

#include "core/DecidedThrows.h"
#include "core/GameStart.h"
#include "engine/Game.h"
#include "engine/GameAnalysis.h"
#include "engine/PlayOutDice.h"
#include "engine/PositionAnalysis.h"
#include "tools/MatchGames.h"
#include "tools/WithoutPeople.h"

namespace zorva {
namespace {

using engine::Game;
using engine::Moment;

constexpr int rounds = 9;

Settings OfLevel100() {
    Settings settings = WithoutPeople({});
    settings.PlayerLevel.fill(100);
    return settings;
}

/// A game by chance and all positions that it comes through.
class Watched : public DecidedThrows {
public:
    explicit Watched(std::uint64_t number) : chance_(1, number) {
        GameState state;
        const Settings settings = OfLevel100();
        const GameContext game{state, settings, *this};
        ResetGame(game);
        PlayFrom(game, 1);
    }
    void PositionReached(const GameState& position) override { positions.push_back(position); }

    std::vector<GameState> positions;

protected:
    Short NextThrow() override { return chance_.Face(); }

private:
    Chance chance_;
};

/// Processor time of this thread, in seconds.
double TimeOf(const std::function<void()>& work) {
    timespec begin{}, end{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &begin);
    work();
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &end);
    return static_cast<double>(end.tv_sec - begin.tv_sec) +
           static_cast<double>(end.tv_nsec - begin.tv_nsec) * 1e-9;
}

/// The median of what a measurement gives, which is made several times.
double Median(const std::function<double()>& measure) {
    std::vector<double> results(rounds);
    for (double& result : results) result = measure();
    std::nth_element(results.begin(), results.begin() + rounds / 2, results.end());
    return results[rounds / 2];
}

/// Plays that many games of a match and returns their moves.
long PlayMatch(std::uint64_t games) {
    const MatchGames match({OfLevel100(), 1});
    long moves = 0;
    for (std::uint64_t number = 0; number < games; ++number) moves += match.PlayByEngine(number).moves;
    return moves;
}

/// The middles of some games.
std::vector<Moment> Middles() {
    std::vector<Moment> middles;
    for (std::uint64_t number = 0; number < 20; ++number) {
        const auto positions = Watched(number).positions;
        middles.emplace_back(positions[positions.size() / 2]);
    }
    return middles;
}

// Moves per second of play-outs, as a multiple of those of whole games.
double SpeedOfPlayOuts() {
    const std::vector<Moment> middles = Middles();
    const engine::GameRules rules(OfLevel100());
    return Median([&] {
        long moves = 0, matchMoves = 0;
        const double match = TimeOf([&] { matchMoves = PlayMatch(1000); });
        const double playOuts = TimeOf([&] {
            for (std::uint64_t number = 0; number < 2000; ++number) {
                const engine::PlayOutDice dice(1, number);
                const Moment& start = middles[number % middles.size()];
                Game game(rules, start);
                game.Play([&](const Moment& now) { return dice.FaceAt(now); });
                moves += game.Now().moves - start.moves;
            }
        });
        return (static_cast<double>(moves) / playOuts) / (static_cast<double>(matchMoves) / match);
    });
}

/// The analyses of middles in which four moves are legal.
std::vector<engine::PositionAnalysis> FourMoves() {
    std::vector<engine::PositionAnalysis> found;
    const engine::GameRules rules(OfLevel100());
    for (std::uint64_t number = 0; found.size() < 5; ++number) {
        const auto positions = Watched(number).positions;
        Game game(rules, Moment(positions[positions.size() / 2]));
        if (!game.Now().IsThrowDue()) continue;
        game.TakeThrow(1);
        engine::PositionAnalysis analysis(game.Now(), OfLevel100(), 1);
        if (analysis.Moves().size() == 4) found.push_back(std::move(analysis));
    }
    return found;
}

// The time for 2,000 play-outs of four moves each, as a multiple of that of 5,000 games. A tenth of it
// is measured, in each of five positions.
double TimeOfFourMoves() {
    const auto analyses = FourMoves();
    return Median([&] {
        const double match = TimeOf([] { PlayMatch(2500); });
        const double moves = TimeOf([&] {
            for (const auto& analysis : analyses) analysis.Games().Play(0, 200, 1);
        });
        return moves / match;
    });
}

// The time for 6,000 play-outs a record of a game, as a multiple of that of 1.25 million games, and the
// error of a colour's luck that follows. A hundredth of it is measured.
void ReportGame() {
    std::uint64_t number = 0;
    while (Watched(number).positions.back().MoveRecordCount / 10 != 40) ++number;
    const engine::GameAnalysis analysis(Watched(number).positions.back(), OfLevel100(), 1);
    const std::uint64_t count = 60 * analysis.Records() / analysis.Games().Moments();
    engine::Tally tally;
    const double ratio = Median([&] {
        const double match = TimeOf([] { PlayMatch(12'500); });
        return TimeOf([&] { tally += analysis.Games().Play(tally.count, tally.count + count, 1); }) /
               match;
    });
    double worst = 0;
    for (engine::Seat seat = 0; seat < engine::SeatCount; ++seat)
        worst = std::max(worst, analysis.OfSeat(seat, tally).own.luck.error);
    std::printf("a game of %zu moves, 6,000 a record: %.2f of the time of 1,250,000 games\n",
                analysis.Records(), ratio);
    std::printf("standard error of a colour's luck with them: %.3f (from %d play-outs a record)\n",
                worst * std::sqrt(rounds / 100.0), 60 * rounds);
}

}  // namespace
}  // namespace zorva

int main() {
    std::printf("a play-out, by moves: %.2f of the speed of whole games\n", zorva::SpeedOfPlayOuts());
    std::printf("four moves, 2,000 play-outs each: %.2f of the time of 5,000 games\n",
                zorva::TimeOfFourMoves());
    zorva::ReportGame();
}
