#include "tools/GameInFile.h"

#include "core/GameStart.h"
#include "core/SilentOutside.h"
#include "engine/Game.h"
#include "tools/Failure.h"
#include "tools/SettingsArgument.h"

namespace zorva {
namespace {

/// A world in which a game stops at the first position that it reaches.
class StoppingWorld : public SilentOutside {
public:
    explicit StoppingWorld(GameState& state) : state_(state) {}

    void PositionReached(const GameState& position) override {
        reached = position;
        state_.GameInProgress = No;
    }

    GameState reached;

private:
    GameState& state_;
};

GameState PositionOf(SettingsContent content) {
    StoppingWorld world(content.state);
    ContinueGame({content.state, content.settings, world});
    return world.reached;
}

}  // namespace

engine::Moment GameInFile::Start(const engine::GameRules& rules) const {
    engine::Game game(rules, engine::Moment(position));
    if (die != 0) game.TakeThrow(static_cast<unsigned>(die));
    return game.Now();
}

GameInFile ReadGame(const std::string& fileName, const CommandLine& options) {
    GameInFile game{ReadSettingsArgument(fileName), {}};
    if (!game.content.state.GameInProgress) throw Failure(fileName + " has no game in progress");
    game.position = PositionOf(game.content);
    if (!options.Has("--die")) return game;
    game.die = static_cast<Short>(options.Number("--die", 1, 6));
    const engine::Moment moment(game.position);
    if (moment.IsWon()) throw Failure("--die: the game is won");
    if (!moment.IsThrowDue()) throw Failure("--die: a bonus move is due, no throw");
    return game;
}

}  // namespace zorva
