#include "core/Opening.h"

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

void SeatPieces(const Table& table) {
    table.outside.EmptyBoard();
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        if (!IsTakingPart(table.settings, colour)) continue;
        for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
            table.outside.PutDownPiece(CodeOf(colour, piece), 0);
            table.outside.PlaySound(7);
            table.outside.Pause(15);
        }
        table.outside.Pause(30);
    }
}

bool AskToBegin(const Table& table) {
    return table.outside.ShowMessage("Comienza la Partida",
                                     "Se va a tirar el dado para elegir el jugador que comienza la "
                                     "partida. Pulse Aceptar para "
                                     "comenzar el sorteo o  Cancelar\nsi desea cambiar algún parámetro  "
                                     "antes  de  comenzar  la "
                                     "partida.",
                                     4, MessageButtons::YesNo) == MessageAnswer::Accepted;
}

// Every contender throws; what the others hold stays 0.
void ThrowOfEach(const Table& table, const PerColour<bool>& contends, PerColour<Short>& thrown) {
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        thrown[colour] = 0;
        table.state.CurrentColour = colour;
        if (!contends[colour]) continue;
        ThrowDie(table);
        thrown[colour] = table.state.DieValue;
        table.outside.Pause(100);
    }
}

}  // namespace

void ResetGame(const Table& table) {
    ForgetTurn(table.state);
    ApplySettings(table.state, table.settings);
    table.outside.BeginLog(NewGameHeading);
    PutAllIntoBoxes(table.state);
}

void DrawFirstPlayer(const Table& table) {
    PerColour<bool> contends{};
    PerColour<Short> thrown{};
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        contends[colour] = IsTakingPart(table.settings, colour);
    }
    for (;;) {
        table.outside.Pause(90);
        ThrowOfEach(table, contends, thrown);
        const auto best = std::max_element(thrown.begin() + 1, thrown.end());
        const bool isTie = std::count(thrown.begin() + 1, thrown.end(), *best) > 1;
        // Nobody is on turn while the tie is told.
        table.state.CurrentColour = isTie ? Colour{0} : static_cast<Colour>(best - thrown.begin());
        if (!isTie) return;
        for (Colour colour = 1; colour <= ColourCount; ++colour)
            contends[colour] = thrown[colour] == *best;
        table.outside.ShowMessage(drawTitle, "Hay empate y se va a desempatar", 1,
                                  MessageButtons::Acknowledge);
        table.show.ClearDice();
    }
}

void PlayFrom(const Table& table, Colour first) {
    table.state.GameInProgress = Yes;
    table.state.CurrentColour = first;
    table.show.ClearDice();
    PreviousColour(table);
    table.outside.SetScreenPointer(ScreenPointer::Hourglass);
    table.outside.Pause(15);
    RunTurns(table);
}

StartOutcome StartGame(const Table& table) {
    ResetGame(table);
    table.show.ClearDice();
    SeatPieces(table);
    if (!AskToBegin(table)) return StartOutcome::Cancelled;
    table.state.GameInProgress = Yes;
    DrawFirstPlayer(table);
    if (!table.state.GameInProgress) return StartOutcome::Played;
    const Colour first = table.state.CurrentColour;
    table.outside.ShowMessage(drawTitle, "Sale " + Trimmed(table.settings.PlayerName[first]) + ".", 1,
                              MessageButtons::Acknowledge);
    if (!table.state.GameInProgress) return StartOutcome::Played;
    PlayFrom(table, first);
    return StartOutcome::Played;
}

}  // namespace zorva
