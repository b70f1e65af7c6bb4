#include <benchmark/benchmark.h>

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>

#include "core/Board.h"
#include "core/DecidedThrows.h"
#include "core/Displacement.h"
#include "core/GameStart.h"
#include "core/Recorder.h"
#include "core/Turns.h"
#include "engine/Chance.h"
#include "store/HistoryFile.h"
#include "store/SettingsFile.h"
#include "store/SettingsStorage.h"

// What a move, a step of the recorder, saving and the history cost as the log and the history grow. The
// core and the store are measured; the window paints the lines of the log that are in sight, however
// many there are.

namespace zorva {
namespace {

/// A game that goes on as long as it is wanted: a piece that has come far is dragged back into its box.
class EndlessGame : public DecidedThrows {
public:
    explicit EndlessGame(GameState& state) : state_(state) {}

    /// Plays until the state has that many records.
    void PlayUntil(Short records) {
        wanted_ = records;
        const GameContext game{state_, settings_, *this};
        if (!state_.GameInProgress) {
            ResetGame(game);
            PlayFrom(game, 1);
        } else {
            RunTurns(game);
        }
        // The turn that has begun is offered again.
        --state_.MoveRecordCount;
        if (!state_.RepeatTurn) PreviousColour(game);
        state_.GameInProgress = Yes;
    }

    const Settings& PlayedWith() const { return settings_; }

    void PositionReached(const GameState& position) override {
        if (position.ThrowNext && position.MoveRecordCount > wanted_) state_.GameInProgress = No;
    }

    void WaitForInput() override {
        const PieceCode far = FarthestPiece();
        if (far == 0) {
            state_.WaitingForThrow = No;
            return;
        }
        EnterManualMode(state_);
        DisplaceByHand(state_, far, 0);
    }

protected:
    Short NextThrow() override { return chance_.Face(); }

private:
    PieceCode FarthestPiece() const {
        for (Colour colour = 1; colour <= ColourCount; ++colour) {
            for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
                const Short steps = StepsFromExit(state_, colour, piece);
                if (steps > 55 && steps < StepsToGoal && state_.PiecesHome[colour] > 1)
                    return CodeOf(colour, piece);
            }
        }
        return 0;
    }

    GameState& state_;
    const Settings settings_;
    Chance chance_{1};
    Short wanted_ = 0;
};

/// Processor time of this thread: what else runs on the machine does not count.
double Seconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

/// An empty folder, removed at the end.
class Folder {
public:
    Folder() {
        std::string name = (std::filesystem::temp_directory_path() / "zorva-bench-XXXXXX").string();
        path_ = mkdtemp(name.data());
    }
    ~Folder() { std::filesystem::remove_all(path_); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    const std::filesystem::path& Path() const { return path_; }

private:
    std::filesystem::path path_;
};

constexpr Short movesAtOnce = 100;

void MakeMoves(benchmark::State& run) {
    const Short length = static_cast<Short>(run.range(0));
    GameState begun;
    EndlessGame(begun).PlayUntil(length);
    for (auto _ : run) {
        GameState state = begun;
        EndlessGame game(state);
        const double start = Seconds();
        game.PlayUntil(static_cast<Short>(length + movesAtOnce));
        run.SetIterationTime((Seconds() - start) / (state.MoveRecordCount - begun.MoveRecordCount));
    }
}

void StepRecorder(benchmark::State& run) {
    GameState state;
    EndlessGame endless(state);
    endless.PlayUntil(static_cast<Short>(run.range(0)));
    ++state.MoveRecordCount;  // the unfinished move, which the recorder counts
    const GameContext game{state, endless.PlayedWith(), endless};
    RecorderState recorder;
    RecorderSwitchOn(game, recorder);
    const Short steps = movesAtOnce / 2;
    for (auto _ : run) {
        const double start = Seconds();
        for (Short step = 0; step < steps; ++step) StepBack(game, recorder);
        for (Short step = 0; step < steps; ++step) StepForward(game, recorder);
        run.SetIterationTime((Seconds() - start) / (2 * steps));
    }
}

void Save(benchmark::State& run) {
    GameState state;
    EndlessGame game(state);
    game.PlayUntil(static_cast<Short>(run.range(0)));
    const Folder folder;
    for (auto _ : run) {
        const FileError error = SaveSettings(folder.Path(), game.PlayedWith(), state, Durability::Lazy);
        if (error != FileError::None) run.SkipWithError("cannot save");
    }
    run.counters["bytes"] =
        static_cast<double>(std::filesystem::file_size(folder.Path() / SettingsFileName));
}

void WriteHistory(const Folder& folder, std::int64_t games) {
    const std::tm when{};
    GameResult result;
    result.winner = 1;
    result.losers = {2, 3, 4};
    const std::string record = HistoryRecordText(when, result, Settings{});
    std::ofstream file(folder.Path() / HistoryFileName, std::ios::binary);
    for (std::int64_t game = 0; game < games; ++game) file << record;
}

void OpenHistory(benchmark::State& run) {
    const Folder folder;
    WriteHistory(folder, run.range(0));
    for (auto _ : run) {
        const History history = ReadHistory(folder.Path());
        if (history.Count() != static_cast<std::size_t>(run.range(0))) run.SkipWithError("not all read");
    }
}

void TurnPage(benchmark::State& run) {
    constexpr std::size_t gamesOfAPage = 10;
    const Folder folder;
    WriteHistory(folder, run.range(0));
    const History history = ReadHistory(folder.Path());
    std::size_t page = 0;
    for (auto _ : run) {
        for (std::size_t row = 0; row < gamesOfAPage; ++row) {
            benchmark::DoNotOptimize(
                DecodeHistoryRecord(history.Record((page * gamesOfAPage + row) % history.Count())));
        }
        page += 7919;
    }
}

const std::vector<std::int64_t> logs{100, 300, 1000, 3000, 10'000, 30'000};
const std::vector<std::int64_t> histories{10, 100, 1000, 10'000, 100'000, 1'000'000};

// What is timed is a small part of what is done: the number of times is given, or it would take minutes.
constexpr std::int64_t times = 3000;

BENCHMARK(MakeMoves)->Name("one more move")->ArgsProduct({logs})->Iterations(times)->UseManualTime();
BENCHMARK(StepRecorder)
    ->Name("one step of the recorder")
    ->ArgsProduct({logs})
    ->Iterations(times)
    ->UseManualTime();
BENCHMARK(Save)->Name("saving the game")->ArgsProduct({logs});
BENCHMARK(OpenHistory)->Name("opening the history")->ArgsProduct({histories});
BENCHMARK(TurnPage)->Name("turning a page of it")->ArgsProduct({histories});

}  // namespace
}  // namespace zorva
