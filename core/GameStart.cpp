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

// Slot 3 of a square is left alone, deliberately: only a goal can hold something there, and nothing
// reads it but the piece that would be the third to come home.
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

void SeatPieces(const GameContext& game) {
    game.outside.EmptyBoard();
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        if (!IsTakingPart(game.settings, colour)) continue;
        for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
            game.outside.PutDownPiece(CodeOf(colour, piece), 0);
            game.outside.PlaySound(Sound::Box);
            game.outside.Pause(15);
        }
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

// Every contender throws; what the others hold stays 0.
void ThrowOfEach(const GameContext& game, const PerColour<bool>& contends, PerColour<Short>& thrown) {
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        thrown[colour] = 0;
        game.state.CurrentColour = colour;
        if (!contends[colour]) continue;
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
    for (;;) {
        game.outside.Pause(90);
        ThrowOfEach(game, contends, thrown);
        const auto best = std::max_element(thrown.begin() + 1, thrown.end());
        const bool isTie = std::count(thrown.begin() + 1, thrown.end(), *best) > 1;
        // Nobody is on turn while the tie is told.
        game.state.CurrentColour = isTie ? Colour{0} : static_cast<Colour>(best - thrown.begin());
        if (!isTie) return;
        for (Colour colour = 1; colour <= ColourCount; ++colour)
            contends[colour] = thrown[colour] == *best;
        game.outside.ShowMessage(drawTitle, "Hay empate y se va a desempatar", 1,
                                 MessageButtons::Acknowledge);
        game.show.ClearDice();
    }
}

void PlayFrom(const GameContext& game, Colour first) {
    game.state.GameInProgress = Yes;
    game.state.CurrentColour = first;
    game.show.ClearDice();
    PreviousColour(game);
    game.outside.SetScreenCursor(ScreenCursor::Hourglass);
    game.outside.Pause(15);
    RunTurns(game);
}

StartOutcome StartGame(const GameContext& game) {
    ResetGame(game);
    game.show.ClearDice();
    SeatPieces(game);
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

}  // namespace zorva
