#include "tests/fuzz/Checks.h"

#include "core/Consistency.h"
#include "core/Execution.h"
#include "core/GameStart.h"
#include "core/SilentOutside.h"
#include "tests/support/Positions.h"
#include "tests/support/RandomGame.h"

namespace zorva::fuzz {

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
    constexpr Short movesPlayedOn = 25;
    RequireWayBack(content.state);
    test::RandomGame game(seed, 0, ToShort(content.state.MoveRecordCount + movesPlayedOn));
    game.state = content.state;
    game.kind.settings = content.settings;
    game.atPosition = RequireSoundTables;
    ContinueGame(game.AsGame());
}

}  // namespace zorva::fuzz
