#include "tests/fuzz/Checks.h"

#include "core/Consistency.h"
#include "core/DecidedThrows.h"
#include "core/Execution.h"
#include "core/GameStart.h"
#include "core/Turns.h"
#include "engine/Chance.h"
#include "tests/support/Positions.h"

namespace zorva::fuzz {
namespace {

constexpr Short movesPlayedOn = 25;

/// Persons who throw, take the advised move and stop after some moves.
class Players : public DecidedThrows {
public:
    Players(GameState& state, std::uint64_t seed)
        : state_(state), chance_(seed), last_(state.MoveRecordCount + movesPlayedOn) {}

    void PositionReached() override {
        RequireSoundTables(state_);
        if (state_.MoveRecordCount > last_) state_.GameInProgress = No;
    }

    void WaitForInput() override {
        if (state_.WaitingForMove) TakeAdvisedMove(state_);
        state_.WaitingForThrow = No;
    }

protected:
    Short NextThrow() override { return chance_.Face(); }

private:
    GameState& state_;
    Chance chance_;
    const int last_;
};

}  // namespace

void RequireSoundTables(const GameState& state) {
    if (state.CaptureReport != 0) return;
    const std::string problem = StateProblem(state);
    Require(problem.empty(), problem.c_str());
}

void RequireWayBack(GameState state) {
    const Settings settings;
    SilentOutside silent;
    const GameState before = state;
    const auto moves = static_cast<Short>(state.MoveRecordCount - 1);
    for (Short move = moves; move >= 1; --move) {
        ExecuteMove({state, settings, silent}, ExecutionMode::Backward, move);
    }
    Require(state.PiecesInBox == GameState{}.PiecesInBox, "a piece is out before the first move");
    RequireSoundTables(state);
    for (Short move = 1; move <= moves; ++move) {
        ExecuteMove({state, settings, silent}, ExecutionMode::Forward, move);
    }
    Require(test::TablesOf(state) == test::TablesOf(before), "back and forward leads elsewhere");
}

SettingsContent RequireReadable(const SettingsContent& content) {
    const std::string text = SettingsText(content.settings, content.state);
    const SettingsReading reading = ReadSettings(text);
    const auto* loaded = std::get_if<SettingsContent>(&reading);
    Require(loaded != nullptr, "what the game wrote is refused");
    Require(SettingsText(loaded->settings, loaded->state) == text, "written again it differs");
    return *loaded;
}

void RequirePlayable(const SettingsContent& content, std::uint64_t seed) {
    RequireWayBack(content.state);
    GameState state = content.state;
    Players players(state, seed);
    ContinueGame({state, content.settings, players});
}

}  // namespace zorva::fuzz
