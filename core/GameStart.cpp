#include "core/GameStart.h"

#include <algorithm>
#include <string>

#include "core/Board.h"
#include "core/Dice.h"
#include "core/Records.h"
#include "core/Turns.h"

namespace zorva {
namespace {

constexpr const char* drawTitle = "Sorteo del jugador que comienza";

void ForgetTurn(GameState& state) {
    state.GameInProgress = No;
    state.WaitingForThrow = No;
    state.WaitingForMove = No;
    state.RepeatTurn = No;
    state.ThrowNext = Yes;
    state.SixesInRow = 0;
    state.CaptureReport = 0;
    state.SecondMovePending = 0;
    state.ManualMode = No;
    state.ManualShiftMade = No;
    state.DieValue = 0;
    state.MoveRecordCount = 0;
    state.MoveRecords.assign(41, {});
}

// Slot 3 is not emptied: between games only a goal can hold a piece there, and GoalLeftover remembers it
// for the third piece that reaches that goal.
void PutAllIntoBoxes(GameState& state) {
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        state.PiecesInBox[colour] = PiecesPerColour;
        state.PiecesHome[colour] = 0;
        state.PiecePosition[colour].fill(0);
        state.GoalLeftover[colour] = state.SquareOccupants[GoalSquare[colour]][3];
    }
    for (Square square = 1; square <= LastSquare; ++square) {
        state.SquareOccupants[square][1] = 0;
        state.SquareOccupants[square][2] = 0;
    }
}

// Each piece of a colour is put down where it stands: in its box in a new game. A colour that does not
// take part has no pieces in its box, but those that a file has on the board block and can be captured.
void SeatPiecesOf(const GameContext& game, Colour colour) {
    for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
        const PieceCode code = CodeOf(colour, piece);
        if (!IsTakingPart(game.settings, colour) && game.state.PositionOf(code) == 0) continue;
        game.outside.PutDownPiece(code, game.state.PositionOf(code));
        game.outside.PlaySound(Sound::Box);
        game.outside.Pause(15);
    }
}

void SeatNewPieces(const GameContext& game) {
    game.outside.RefreshBoard(PiecesShown::None);
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        if (!IsTakingPart(game.settings, colour)) continue;
        SeatPiecesOf(game, colour);
        game.outside.Pause(30);
    }
}

bool AskToBegin(const GameContext& game) {
    return game.outside.ShowMessage("Comienza la Partida",
                                    "Se va a tirar el dado para elegir el jugador que comienza la "
                                    "partida. Pulse Aceptar para "
                                    "comenzar el sorteo o  Cancelar\nsi desea cambiar algún parámetro  "
                                    "antes  de  comenzar  la "
                                    "partida.",
                                    4, MessageButtons::YesNo) == MessageAnswer::Accepted;
}

// Every contender throws; the others count as having thrown 0.
void ThrowOfEach(const GameContext& game, const PerColour<bool>& contends, PerColour<Short>& thrown) {
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        thrown[colour] = 0;
        game.state.CurrentColour = colour;
        if (!contends[colour]) continue;
        game.outside.ShowTurn(colour, TurnIs::InDraw);
        ThrowDie(game);
        thrown[colour] = game.state.DieValue;
        game.outside.Pause(100);
    }
}

}  // namespace

void ResetGame(const GameContext& game) {
    ForgetTurn(game.state);
    ApplySettings(game.state, game.settings);
    game.outside.BeginLog(NewGameHeading);
    PutAllIntoBoxes(game.state);
}

void DrawFirstPlayer(const GameContext& game) {
    PerColour<bool> contends{};
    PerColour<Short> thrown{};
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        contends[colour] = IsTakingPart(game.settings, colour);
    }
    game.outside.ShowTurn(0, TurnIs::InDraw);
    for (;;) {
        game.outside.Pause(90);
        ThrowOfEach(game, contends, thrown);
        const auto best = std::max_element(thrown.begin() + 1, thrown.end());
        const bool isTie = std::count(thrown.begin() + 1, thrown.end(), *best) > 1;
        // Nobody is on turn while the message about a tie is open.
        game.state.CurrentColour = isTie ? Colour{0} : static_cast<Colour>(best - thrown.begin());
        game.outside.ShowTurn(game.state.CurrentColour, TurnIs::InDraw);
        if (!isTie) return;
        for (Colour colour = 1; colour <= ColourCount; ++colour)
            contends[colour] = thrown[colour] == *best;
        game.outside.ShowMessage(drawTitle, "Hay empate y se va a desempatar", 1,
                                 MessageButtons::Acknowledge);
        if (!game.state.GameInProgress) return;  // abandoned during the message
        game.outside.ClearDice();
    }
}

void PlayFrom(const GameContext& game, Colour first) {
    game.state.GameInProgress = Yes;
    game.state.CurrentColour = first;
    game.outside.ClearDice();
    PreviousColour(game);
    game.outside.SetScreenCursor(ScreenCursor::Hourglass);
    game.outside.Pause(15);
    RunTurns(game);
}

StartOutcome StartGame(const GameContext& game) {
    ResetGame(game);
    game.outside.ClearDice();
    SeatNewPieces(game);
    if (!AskToBegin(game)) return StartOutcome::Cancelled;
    game.state.GameInProgress = Yes;
    DrawFirstPlayer(game);
    if (!game.state.GameInProgress) return StartOutcome::Played;
    const Colour first = game.state.CurrentColour;
    game.outside.ShowMessage(drawTitle, "Sale " + Trimmed(game.settings.PlayerName[first]) + ".", 1,
                             MessageButtons::Acknowledge);
    if (!game.state.GameInProgress) return StartOutcome::Played;
    PlayFrom(game, first);
    return StartOutcome::Played;
}

// RunTurns opens a record first, which raises MoveRecordCount: one less here gives the unfinished move
// its own number again. The last record says whether a bonus was due.
void ContinueGame(const GameContext& game) {
    GameState& state = game.state;
    Require(state.GameInProgress && state.MoveRecordCount >= 2, "no game to continue");
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        SeatPiecesOf(game, colour);
    }
    --state.MoveRecordCount;
    state.MoveCount = BonusDueAfter(state.MoveRecords[state.MoveRecordCount]);
    state.ThrowNext = state.MoveCount == 0 ? Yes : No;
    RunTurns(game);
}

}  // namespace zorva
