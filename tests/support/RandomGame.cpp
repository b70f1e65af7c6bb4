#include "tests/support/RandomGame.h"

#include "core/Board.h"
#include "core/Displacement.h"
#include "core/GameStart.h"
#include "core/Rules.h"

namespace zorva::test {
namespace {

constexpr Short longestGame = 3000;

Short Either(Chance& chance) {
    return static_cast<Short>(1 + chance.Below(2));
}

std::array<Short, 10> RandomFaces(Chance& chance) {
    static constexpr std::array<Short, 10> rich[] = {
        {1, 2, 3, 4, 5, 5, 5, 6, 6, 6}, {2, 3, 5, 5, 5, 5, 5, 5, 6, 6}, {1, 4, 5, 6, 6, 6, 6, 6, 6, 6},
        {1, 1, 1, 2, 2, 2, 3, 4, 5, 6}, {1, 2, 3, 4, 5, 6, 1, 2, 5, 6},
    };
    return rich[chance.Below(std::size(rich))];
}

/// The world of a random game: persons pick any piece they may, or drag one where it may stand.
class RandomWorld : public DecidedThrows {
public:
    RandomWorld(GameState& state, const RandomGameKind& kind, Chance& chance,
                const BeforeRecord& beforeRecord, const AtEachPosition& atPosition)
        : state_(state),
          kind_(kind),
          chance_(chance),
          beforeRecord_(beforeRecord),
          atPosition_(atPosition) {}

    void AddLogLine(Short moveNumber, const MoveRecord& record) override {
        logged_ = moveNumber;
        if (beforeRecord_) beforeRecord_(state_, record);
    }

    void PositionReached() override {
        if (state_.MoveRecordCount > longestGame) state_.GameInProgress = No;
        if (atPosition_ && state_.GameInProgress) atPosition_(state_, chance_);
    }

    void WaitForInput() override {
        if (state_.WaitingForMove) {
            PickByChance(state_, chance_);
        } else {
            if (kind_.shiftsByHand && chance_.Below(8) == 0)
                TryShiftByHand(state_, kind_.settings, chance_);
            state_.WaitingForThrow = No;
        }
    }

    Short Logged() const { return logged_; }

protected:
    Short NextThrow() override { return kind_.faces[chance_.Below(kind_.faces.size())]; }

private:
    GameState& state_;
    const RandomGameKind& kind_;
    Chance& chance_;
    const BeforeRecord& beforeRecord_;
    const AtEachPosition& atPosition_;
    Short logged_ = 0;
};

}  // namespace

RandomGameKind RandomGameKind::Of(Chance& chance) {
    RandomGameKind kind;
    Settings& settings = kind.settings;
    settings.PlayOrder = Either(chance);
    settings.RuleSixAllOut = Either(chance);
    settings.RuleLeaveAllInBox = Either(chance);
    settings.RuleFiveAllInBox = Either(chance);
    settings.RuleFiveSomeInBox = Either(chance);
    settings.PauseBetweenMoves = 1;
    kind.first = static_cast<Colour>(1 + chance.Below(ColourCount));
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        settings.PlayerLevel[colour] = static_cast<Short>(chance.Below(101));
        settings.PlayerType[colour] = chance.Below(3) == 0 ? 2 : 1;
        settings.PlayerActive[colour] = colour == kind.first || chance.Below(3) != 0 ? 1 : 2;
        if (chance.Below(4) == 0) {
            kind.leftovers[colour] = CodeOf(colour, static_cast<Short>(1 + chance.Below(4)));
        }
    }
    kind.faces = RandomFaces(chance);
    kind.shiftsByHand = chance.Below(4) == 0;
    return kind;
}

void PickByChance(GameState& state, Chance& chance) {
    Short piece = 0;
    do {
        piece = static_cast<Short>(1 + chance.Below(PiecesPerColour));
    } while (!state.MovablePieces[piece]);
    state.MovePiece = piece;
    state.MoveFrom = state.PiecePosition[state.CurrentColour][piece];
    state.MoveTo = DestinationOf(state.CurrentColour, state.MoveCount, state.MoveFrom);
    state.WaitingForMove = No;
}

void TryShiftByHand(GameState& state, const Settings& settings, Chance& chance) {
    const Colour colour = static_cast<Colour>(1 + chance.Below(ColourCount));
    const PieceCode code = CodeOf(colour, static_cast<Short>(1 + chance.Below(PiecesPerColour)));
    const Short steps = static_cast<Short>(chance.Below(StepsToGoal + 2));
    const Square to = steps > StepsToGoal ? Square{0} : AdvanceSquare(ExitSquare[colour], steps, colour);
    if (!MayBeDragged(state, settings, code) || !MayBeDropped(state, code, to)) return;
    EnterManualMode(state);
    DisplaceByHand(state, code, to);
}

Short PlayRandomGame(GameState& state, const RandomGameKind& kind, Chance& chance,
                     const BeforeRecord& beforeRecord, const AtEachPosition& atPosition) {
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        state.SquareOccupants[GoalSquare[colour]][3] = kind.leftovers[colour];
    }
    RandomWorld world(state, kind, chance, beforeRecord, atPosition);
    const GameContext game{state, kind.settings, world};
    ResetGame(game);
    PlayFrom(game, kind.first);
    return world.Logged();
}

void ContinueRandomGame(GameState& state, const RandomGameKind& kind, Chance chance) {
    const BeforeRecord nobodyLooks;
    const AtEachPosition nobodyKeeps;
    RandomWorld world(state, kind, chance, nobodyLooks, nobodyKeeps);
    ContinueGame({state, kind.settings, world});
}

}  // namespace zorva::test
