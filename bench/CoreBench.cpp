#include <benchmark/benchmark.h>

#include <vector>

#include "core/Board.h"
#include "core/DecidedThrows.h"
#include "core/GameStart.h"
#include "core/Player.h"
#include "core/Rules.h"
#include "engine/Chance.h"
#include "tools/Match.h"
#include "tools/WithoutPeople.h"

namespace zorva {
namespace {

/// Positions as games bring them about, each with a throw to be decided.
class PositionCollector : public DecidedThrows {
public:
    static std::vector<GameState> Positions(const Settings& settings) {
        std::vector<GameState> positions;
        for (std::uint64_t game = 0; game < 20; ++game) {
            GameState state;
            PositionCollector collector(state, game, positions);
            const GameContext game{state, settings, collector};
            ResetGame(game);
            PlayFrom(game, 1);
        }
        return positions;
    }

protected:
    Short NextThrow() override {
        GameState position = state_;
        position.DieValue = position.MoveCount = chance_.Face();
        position.MoveRecords.clear();
        positions_.push_back(std::move(position));
        return positions_.back().DieValue;
    }

private:
    PositionCollector(GameState& state, std::uint64_t game, std::vector<GameState>& positions)
        : state_(state), chance_(1, game), positions_(positions) {}

    GameState& state_;
    Chance chance_;
    std::vector<GameState>& positions_;
};

Settings OfLevel(Short level) {
    Settings settings = WithoutPeople({});
    settings.PlayerLevel.fill(level);
    return settings;
}

void WalkTwelve(benchmark::State& run) {
    Square square = 0;
    for (auto _ : run) {
        for (Colour colour = 1; colour <= ColourCount; ++colour) {
            benchmark::DoNotOptimize(square = AdvanceSquare(ExitSquare[colour], 12, colour));
        }
    }
    run.SetItemsProcessed(run.iterations() * ColourCount);
}
BENCHMARK(WalkTwelve)->Name("AdvanceSquare, 12 steps");

void TestLegality(benchmark::State& run) {
    const std::vector<GameState> positions = PositionCollector::Positions(OfLevel(50));
    const Short steps = static_cast<Short>(run.range(0));
    std::size_t next = 0;
    for (auto _ : run) {
        const GameState& state = positions[next];
        for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
            const Square square = state.PiecePosition[state.CurrentColour][piece];
            benchmark::DoNotOptimize(IsMoveLegal(state, state.CurrentColour, steps, square));
        }
        if (++next == positions.size()) next = 0;
    }
    run.SetItemsProcessed(run.iterations() * PiecesPerColour);
}
BENCHMARK(TestLegality)->Name("IsMoveLegal, steps")->Arg(1)->Arg(6)->Arg(12)->Arg(20);

void Decide(benchmark::State& run) {
    const Settings settings = OfLevel(static_cast<Short>(run.range(0)));
    std::vector<GameState> positions = PositionCollector::Positions(settings);
    std::size_t next = 0;
    for (auto _ : run) {
        // Every position is met anew: what the decision before it left is not read.
        positions[next].SecondMovePending = 0;
        ChooseComputerMove(positions[next], settings);
        benchmark::DoNotOptimize(positions[next].BestPiece);
        if (++next == positions.size()) next = 0;
    }
    run.SetItemsProcessed(run.iterations());
}
BENCHMARK(Decide)->Name("one decision, level")->Arg(0)->Arg(50)->Arg(100);

void PlayGame(benchmark::State& run) {
    MatchPlan plan;
    plan.settings = OfLevel(static_cast<Short>(run.range(0)));
    std::uint64_t number = 0;
    MatchTotals totals;
    MatchPlayer player(plan);
    for (auto _ : run) player.Play(number++, totals);
    run.SetItemsProcessed(run.iterations());
    run.counters["moves"] = static_cast<double>(totals.moves) / static_cast<double>(totals.games);
}
BENCHMARK(PlayGame)->Name("one whole game, level")->Arg(0)->Arg(50)->Arg(80)->Arg(100);

}  // namespace
}  // namespace zorva
