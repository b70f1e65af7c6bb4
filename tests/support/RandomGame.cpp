#include "tests/support/RandomGame.h"

#include "core/Board.h"
#include "core/Displacement.h"
#include "core/GameStart.h"
#include "core/Rules.h"

namespace zorva::test {
namespace {

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

// Saved games must be readable whichever rules their moves followed.
void ChangeRules(Settings& settings, Chance& chance) {
    settings.RuleSixAllOut = Either(chance);
    settings.RuleLeaveAllInBox = Either(chance);
    settings.RuleFiveAllInBox = Either(chance);
    settings.RuleFiveSomeInBox = Either(chance);
}

}  // namespace

RandomGameKind RandomGameKind::Of(Chance& chance) {
    RandomGameKind kind;
    Settings& settings = kind.settings;
    settings.PlayOrder = Either(chance);
    ChangeRules(settings, chance);
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

RandomGame::RandomGame(std::uint64_t seed, std::uint64_t number, Short longest)
    : chance(seed, number), longest_(longest) {
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        state.SquareOccupants[GoalSquare[colour]][3] = kind.leftovers[colour];
    }
}

RandomGame::RandomGame(const RandomGame& other)
    : DecidedThrows(),
      chance(other.chance),
      kind(other.kind),
      state(other.state),
      logged(other.logged),
      longest_(other.longest_) {}

void RandomGame::Play() {
    ResetGame(AsGame());
    PlayFrom(AsGame(), kind.first);
}

void RandomGame::AddLogLine(Short moveNumber, const MoveRecord& record) {
    logged = moveNumber;
    if (beforeRecord) beforeRecord(record);
}

void RandomGame::PositionReached(const GameState& position) {
    if (position.MoveRecordCount > longest_) state.GameInProgress = No;
    if (atPosition && state.GameInProgress) atPosition(position);
    if (!kind.changesRules || chance.Below(40) != 0) return;
    ChangeRules(kind.settings, chance);
    ApplySettings(state, kind.settings);
}

void RandomGame::WaitForInput() {
    if (state.WaitingForMove) return PickPiece();
    ThrowAwaited();
    if (kind.shiftsByHand && chance.Below(8) == 0) TryShiftByHand();
    state.WaitingForThrow = No;
}

void RandomGame::PickPiece() {
    do {
        state.MovePiece = static_cast<Short>(1 + chance.Below(PiecesPerColour));
    } while (!state.MovablePieces[state.MovePiece]);
    state.MoveFrom = state.PiecePosition[state.CurrentColour][state.MovePiece];
    state.MoveTo = DestinationOf(state.CurrentColour, state.MoveCount, state.MoveFrom);
    state.WaitingForMove = No;
}

void RandomGame::TryShiftByHand() {
    const Colour colour = static_cast<Colour>(1 + chance.Below(ColourCount));
    const PieceCode code = CodeOf(colour, static_cast<Short>(1 + chance.Below(PiecesPerColour)));
    const Short steps = static_cast<Short>(chance.Below(StepsToGoal + 2));
    const Square to = steps > StepsToGoal ? Square{0} : AdvanceSquare(ExitSquare[colour], steps, colour);
    if (!MayBeDragged(state, kind.settings, code) || !MayBeDropped(state, code, to)) return;
    EnterManualMode(state);
    DisplaceByHand(state, code, to);
}

}  // namespace zorva::test
