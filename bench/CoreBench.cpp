#include <benchmark/benchmark.h>

#include <utility>
#include <vector>

#include "core/DecidedThrows.h"
#include "core/GameStart.h"
#include "core/Player.h"
#include "core/Rules.h"
#include "engine/Chance.h"
#include "engine/MoveChoice.h"
#include "engine/SeatView.h"
#include "tools/MatchGames.h"
#include "tools/WithoutPeople.h"

namespace zorva {
namespace {

/// Positions as games bring them about, each with a throw to be decided.
class PositionCollector : public DecidedThrows {
public:
    static std::vector<GameState> Positions(const Settings& settings) {
        std::vector<GameState> positions;
        for (std::uint64_t number = 0; number < 20; ++number) {
            GameState state;
            PositionCollector collector(state, number, positions);
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

/// Positions in turn, each a value of its own.
template <typename Value>
class InTurn {
public:
    explicit InTurn(std::vector<Value> values) : values_(std::move(values)) {}

    Value& Next() {
        if (++next_ == values_.size()) next_ = 0;
        return values_[next_];
    }

private:
    std::vector<Value> values_;
    std::size_t next_ = 0;
};

/// What the engine is asked: a position, the seat on turn and its throw.
struct Question {
    engine::Position position;
    engine::Seat seat;
    engine::Throw thrown;
};

InTurn<Question> Questions(const Settings& settings) {
    std::vector<Question> questions;
    for (const GameState& state : PositionCollector::Positions(settings)) {
        const auto count = static_cast<unsigned>(state.MoveCount);
        questions.push_back(
            {engine::Position(state), engine::SeatOf(state.CurrentColour), {count, count}});
    }
    return InTurn<Question>(std::move(questions));
}

void LegalityByTheBook(benchmark::State& run) {
    InTurn<GameState> positions(PositionCollector::Positions(OfLevel(50)));
    const Short steps = static_cast<Short>(run.range(0));
    for (auto _ : run) {
        const GameState& state = positions.Next();
        for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
            const Square square = state.PiecePosition[state.CurrentColour][piece];
            benchmark::DoNotOptimize(IsMoveLegal(state, state.CurrentColour, steps, square));
        }
    }
}
BENCHMARK(LegalityByTheBook)->Name("legal moves of four pieces, book, steps")->Arg(6)->Arg(20);

void LegalityByEngine(benchmark::State& run) {
    InTurn<Question> questions = Questions(OfLevel(50));
    const auto steps = static_cast<unsigned>(run.range(0));
    for (auto _ : run) {
        const Question& question = questions.Next();
        const engine::SeatView view(question.position, question.seat);
        benchmark::DoNotOptimize(view.MovablePieces(steps));
    }
}
BENCHMARK(LegalityByEngine)->Name("legal moves of four pieces, engine, steps")->Arg(6)->Arg(20);

void DecideByTheBook(benchmark::State& run) {
    const Settings settings = OfLevel(static_cast<Short>(run.range(0)));
    InTurn<GameState> positions(PositionCollector::Positions(settings));
    for (auto _ : run) {
        GameState& state = positions.Next();
        state.SecondMovePending = 0;  // as it was before the last decision about it
        ChooseComputerMove(state, settings);
        benchmark::DoNotOptimize(state.BestPiece);
    }
}
BENCHMARK(DecideByTheBook)->Name("one decision, book, level")->Arg(0)->Arg(50)->Arg(100);

void DecideByEngine(benchmark::State& run) {
    const Settings settings = OfLevel(static_cast<Short>(run.range(0)));
    const engine::GameRules rules(settings);
    InTurn<Question> questions = Questions(settings);
    for (auto _ : run) {
        const Question& question = questions.Next();
        const engine::MoveChoice choice =
            engine::ChooseMove(question.position, rules, question.seat, question.thrown);
        benchmark::DoNotOptimize(choice.piece);
    }
}
BENCHMARK(DecideByEngine)->Name("one decision, engine, level")->Arg(0)->Arg(50)->Arg(100);

template <GameTotals (MatchGames::*Play)(std::uint64_t) const>
void PlayGame(benchmark::State& run) {
    const MatchGames games({OfLevel(static_cast<Short>(run.range(0))), 0});
    std::uint64_t number = 0;
    for (auto _ : run) benchmark::DoNotOptimize((games.*Play)(number++));
    run.SetItemsProcessed(run.iterations());
}
BENCHMARK(PlayGame<&MatchGames::PlayByTheBook>)
    ->Name("one game, book, level")
    ->Arg(0)
    ->Arg(50)
    ->Arg(100);
BENCHMARK(PlayGame<&MatchGames::PlayByEngine>)
    ->Name("one game, engine, level")
    ->Arg(0)
    ->Arg(50)
    ->Arg(100);

}  // namespace
}  // namespace zorva
