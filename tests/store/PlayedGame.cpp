#include "tests/store/PlayedGame.h"

#include "core/Board.h"
#include "core/Displacement.h"
#include "core/Opening.h"
#include "core/Recorder.h"
#include "core/Rules.h"
#include "core/Turns.h"
#include "tests/support/RandomGame.h"

namespace zorva::test {
namespace {

constexpr Short longestGame = 700;

class PlayedWorld : public DecidedThrows {
public:
    PlayedWorld(PlayedGame& game, const AtPosition& atPosition) : game_(game), atPosition_(atPosition) {}

    void PositionReached() override {
        if (game_.state.MoveRecordCount > longestGame) game_.state.GameInProgress = No;
        if (game_.state.GameInProgress) atPosition_(game_);
    }

    void WaitForInput() override {
        if (game_.state.WaitingForMove) {
            PickPiece();
            return;
        }
        switch (game_.chance.Below(40)) {
            case 0: return ChangeRules();
            case 1: return PlayAgainFromEarlier();
            case 2:
            case 3: return TryDisplacement();
            default: game_.state.WaitingForThrow = No;
        }
    }

protected:
    Short NextThrow() override { return game_.faces[game_.chance.Below(game_.faces.size())]; }

private:
    Short OneOf(Short count) { return static_cast<Short>(1 + game_.chance.Below(count)); }

    void PickPiece() {
        GameState& state = game_.state;
        do {
            state.MovePiece = OneOf(PiecesPerColour);
        } while (!state.MovablePieces[state.MovePiece]);
        state.MoveFrom = state.PiecePosition[state.CurrentColour][state.MovePiece];
        state.MoveTo = DestinationOf(state.CurrentColour, state.MoveCount, state.MoveFrom);
        state.WaitingForMove = No;
    }

    void ChangeRules() {
        game_.settings.RuleSixAllOut = OneOf(2);
        game_.settings.RuleLeaveAllInBox = OneOf(2);
        game_.settings.RuleFiveAllInBox = OneOf(2);
        game_.settings.PlayerActive[OneOf(ColourCount)] = OneOf(2);
        ApplySettings(game_.state, game_.settings);
    }

    void PlayAgainFromEarlier() {
        const Table table{game_.state, game_.settings, *this};
        RecorderState recorder;
        if (!CanSwitchOn(game_.state, recorder)) return;
        RecorderSwitchOn(table, recorder);
        for (Short steps = OneOf(6); steps > 0 && CanStepBack(game_.state, recorder); --steps) {
            StepBack(table, recorder);
        }
        RestorePosition(table, recorder);
    }

    void TryDisplacement() {
        const Colour colour = OneOf(ColourCount);
        const PieceCode code = CodeOf(colour, OneOf(PiecesPerColour));
        const Short steps = static_cast<Short>(game_.chance.Below(StepsToGoal + 2));
        Square to = ExitSquare[colour];
        for (Short step = 0; step < steps; ++step) to = AdvanceSquare(to, 1, colour);
        if (steps > StepsToGoal) to = 0;
        EnterManualMode(game_.state);
        if (MayBeDragged(game_.state, game_.settings, code) && MayBeDropped(game_.state, code, to)) {
            DisplaceByHand(game_.state, code, to);
        } else {
            LeaveManualMode(game_.state);
        }
    }

    PlayedGame& game_;
    const AtPosition& atPosition_;
};

}  // namespace

PlayedGame PlayedGame::Of(std::uint64_t seed) {
    PlayedGame game;
    game.chance = Chance(seed);
    const RandomGameKind kind = RandomGameKind::Of(game.chance);
    game.settings = kind.settings;
    game.faces = kind.faces;
    game.state.CurrentColour = kind.first;
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        game.state.SquareOccupants[GoalSquare[colour]][3] = kind.leftovers[colour];
    }
    return game;
}

void PlayWhole(PlayedGame& game, const AtPosition& atPosition) {
    PlayedWorld world(game, atPosition);
    const Table table{game.state, game.settings, world};
    const Colour first = game.state.CurrentColour;
    ResetGame(table);
    PlayFrom(table, first);
}

void PlayOn(PlayedGame& game, const AtPosition& atPosition) {
    PlayedWorld world(game, atPosition);
    RunTurns({game.state, game.settings, world});
}

}  // namespace zorva::test
