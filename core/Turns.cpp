#include "core/Turns.h"

#include "core/Board.h"
#include "core/Dice.h"
#include "core/Ending.h"
#include "core/Execution.h"
#include "core/Player.h"
#include "core/Records.h"
#include "core/Rules.h"

namespace zorva {
namespace {

/// How the driver goes on after a move was carried out.
enum class AfterMove { NextTurn, SecondPiece, GameOver };

void PassTurn(const Table& table, Short direction) {
    Colour colour = table.state.CurrentColour;
    do {
        colour = static_cast<Colour>(static_cast<unsigned>(colour - 1 + direction) % ColourCount + 1);
    } while (!IsTakingPart(table.settings, colour));
    table.state.CurrentColour = colour;
}

void BeginTurn(const Table& table) {
    GameState& state = table.state;
    table.show.YieldToEvents();
    table.show.SetScreenPointer(ScreenPointer::Default);
    if (!state.RepeatTurn) {
        NextColour(table);
        state.SixesInRow = 0;
    }
    if (state.SixesInRow == 0) state.RepeatTurn = No;
    NewMoveRecord(state);
    state.DieValue = 0;
}

// The ready die shows a five at the start of a turn and a six when the throw follows a six.
void OfferThrow(const Table& table) {
    GameState& state = table.state;
    table.show.DrawDie(state.CurrentColour, state.RepeatTurn ? Short{6} : Short{5});
    table.show.PlaySound(5);
    state.ManualShiftMade = No;
    state.ManualMode = No;
    state.WaitingForThrow = table.settings.PauseBetweenMoves == 1 ? Yes : No;
    table.show.SetScreenPointer(ScreenPointer::OfTheBoard);
    table.show.YieldToEvents();
    while (state.WaitingForThrow) table.outside.WaitForInput();
}

// A piece was dragged outside the rules: it is logged, and the turn is offered again.
void PlayManualShift(const Table& table) {
    GameState& state = table.state;
    LogMove(table);
    ExecuteMove(table, ExecutionMode::Forward);
    state.ManualShiftMade = No;
    state.CurrentColour = state.ManualShiftColour;
    if (!state.RepeatTurn) PreviousColour(table);
}

// Returns true when this throw was the third six in a row.
bool CountSixes(GameState& state) {
    if (state.DieValue == 0) return false;  // a bonus move
    if (state.DieValue != 6) {
        state.SixesInRow = 0;
        state.RepeatTurn = No;
        return false;
    }
    ++state.SixesInRow;
    if (state.SixesInRow >= 3) return true;
    state.RepeatTurn = Yes;
    if (state.PiecesInBox[state.CurrentColour] == 0) state.MoveCount = state.SixValue;
    return false;
}

// The colour's latest move that was not a bonus; record 0, which holds no piece, when there is none.
const MoveRecord& LastThrownMove(const GameState& state) {
    Short move = static_cast<Short>(state.MoveRecordCount - 1);
    for (; move >= 1; --move) {
        const MoveRecord& record = state.MoveRecords[move];
        const bool isBonus = record.Count == ArrivalBonus || record.Count == CaptureBonus;
        if (record.MoverColour == state.CurrentColour && !isBonus) break;
    }
    return state.MoveRecords[move > 0 ? move : 0];
}

void TellThirdSix(const Table& table, const char* text, Short lineCount) {
    table.outside.ShowMessage("Ha sacado 3 seises", text, lineCount, MessageButtons::Acknowledge);
}

// The third six sends the piece moved last back to its box, unless it is home. Returns false when
// the turn leaves no record at all.
bool PrepareThirdSixReturn(const Table& table) {
    GameState& state = table.state;
    const Colour colour = state.CurrentColour;
    const Short piece = LastThrownMove(state).Piece;
    const Square square = state.PiecePosition[colour][piece];
    state.RepeatTurn = No;
    if (piece != 0 && square == GoalSquare[colour]) {
        TellThirdSix(table,
                     "Este jugador ha sacado un 6 por tercera vez. Como la ficha que ha movido en la  "
                     "jugada  anterior ha llegado a casa no vuelve al cuadro de espera.",
                     3);
        table.show.ClearDice();
        --state.MoveRecordCount;
        return false;
    }
    if (piece == 0 || square == 0) {
        TellThirdSix(table,
                     "Este jugador ha sacado un 6 por tercera vez. Como en el turno anterior no pudo "
                     "mover, no vuelve ninguna ficha al cuadro de espera.",
                     3);
    } else {
        TellThirdSix(table,
                     "Este jugador ha sacado un 6 por tercera vez y la ficha que ha movido en la "
                     "jugada anterior vuelve al cuadro de espera.",
                     2);
    }
    state.MovePiece = piece;
    state.MoveFrom = square;
    state.MoveTo = 0;
    return true;
}

void MakeMoveForPlayer(const Table& table) {
    TakeAdvisedMove(table.state);
    table.show.Pause(15);
    ShowChosenMove(table);
}

// Finds the move of this throw, or waits until the person has chosen one. Returns false when the
// game was abandoned.
bool DecideMove(const Table& table) {
    GameState& state = table.state;
    ChooseComputerMove(state, table.settings);
    if (!state.GameInProgress) return false;
    state.WaitingForMove = Yes;
    const bool byPerson = table.settings.PlayerType[state.CurrentColour] == 2;
    if (state.BestPiece == 0) {
        state.WaitingForMove = No;
        state.MovePiece = state.MoveFrom = state.MoveTo = 0;
    } else if (!byPerson || state.LegalMoveCount == 1) {
        MakeMoveForPlayer(table);
    } else if (table.settings.Tutor == 1) {
        ShowChosenMove(table);
    }
    if (state.WaitingForMove) table.show.SetScreenPointer(ScreenPointer::OfTheBoard);
    while (state.WaitingForMove) table.outside.WaitForInput();
    table.show.SetScreenPointer(ScreenPointer::Default);
    return state.GameInProgress != No;
}

// The captured piece goes home by a record of its own.
void SendCapturedHome(const Table& table) {
    GameState& state = table.state;
    const Short report = state.CaptureReport;
    NewMoveRecord(state);
    state.MovePiece = PieceOf(state.SquareOccupants[state.MoveTo][report == 1 ? 1 : 3]);
    state.MoveFrom = state.MoveTo;
    state.MoveTo = 0;
    state.DieValue = 0;
    state.MoveCount = 0;
    LogMove(table);
    ExecuteMove(table, ExecutionMode::Forward);
    if (report == 1) {
        state.ThrowNext = No;
        state.RepeatTurn = Yes;
        state.MoveCount = CaptureBonus;
    } else {
        table.show.ClearDice();
    }
    state.CaptureReport = 0;
}

AfterMove CarryOutMove(const Table& table) {
    GameState& state = table.state;
    const Colour colour = state.CurrentColour;
    LogMove(table);
    ExecuteMove(table, ExecutionMode::Forward);
    if (state.MovePiece == 0 && state.SixesInRow == 0) {
        table.show.ClearDice();
        return AfterMove::NextTurn;
    }
    if (state.CaptureReport != 0) {
        SendCapturedHome(table);
        if (state.SecondMovePending == 0) return AfterMove::NextTurn;
    }
    if (state.MoveTo == GoalSquare[colour] && state.PiecesHome[colour] < PiecesPerColour) {
        state.RepeatTurn = Yes;
        state.ThrowNext = No;
        state.MoveCount = ArrivalBonus;
        return AfterMove::NextTurn;
    }
    if (state.PiecesHome[colour] == PiecesPerColour) {
        EndOfGame(table);
        return AfterMove::GameOver;
    }
    if (state.SecondMovePending == 1) return AfterMove::SecondPiece;
    if (table.show.IsWatched() && !state.RepeatTurn) table.show.ClearDice();
    table.show.Pause(10);
    return AfterMove::NextTurn;
}

// From the throw to its last move. Returns false when the game is over.
bool PlayThrow(const Table& table) {
    GameState& state = table.state;
    const bool isThirdSix = CountSixes(state);
    if (isThirdSix && !PrepareThirdSixReturn(table)) return true;
    if (!isThirdSix) state.SecondMovePending = 0;
    for (bool isChosen = isThirdSix;; isChosen = false) {
        if (!isChosen && !DecideMove(table)) return false;
        const AfterMove after = CarryOutMove(table);
        if (after != AfterMove::SecondPiece) return after == AfterMove::NextTurn;
        NewMoveRecord(state);
    }
}

// Moves are numbered with 16 bits, and no game comes near; but pieces can be dragged by hand for ever.
void EndLongestGame(const Table& table) {
    table.outside.ShowMessage("Partida demasiado larga",
                              "La partida ha llegado a las 32.700 jugadas y no caben más en la cinta. "
                              "Termina aquí, sin ganador.",
                              2, MessageButtons::Acknowledge);
    table.state.GameInProgress = No;
    table.state.MoveRecordCount = 0;
}

// One pass of the driver: a throw, a bonus move or a displacement by hand. Returns false when the
// game is over or was abandoned.
bool PlayTurn(const Table& table) {
    GameState& state = table.state;
    if (state.MoveRecordCount >= LongestGame) {
        EndLongestGame(table);
        return false;
    }
    BeginTurn(table);
    if (!state.GameInProgress) return false;
    table.show.PositionReached();
    if (state.ThrowNext) {
        OfferThrow(table);
        if (!state.GameInProgress) return false;
        if (state.ManualShiftMade) {
            PlayManualShift(table);
            return true;
        }
        ThrowDie(table);
        state.MoveCount = state.DieValue;
        if (!state.GameInProgress) return false;
    }
    state.ThrowNext = Yes;
    return PlayThrow(table);
}

}  // namespace

void NextColour(const Table& table) {
    PassTurn(table, table.state.PlayDirection);
}

void PreviousColour(const Table& table) {
    PassTurn(table, static_cast<Short>(-table.state.PlayDirection));
}

void ShowChosenMove(const Table& table) {
    const GameState& state = table.state;
    if (state.BestPiece == 0) return;
    table.show.ShowChosenMove(CodeOf(state.CurrentColour, state.BestPiece), state.BestFrom,
                              state.BestTo);
}

void TakeAdvisedMove(GameState& state) {
    state.MovePiece = state.BestPiece;
    state.MoveFrom = state.BestFrom;
    state.MoveTo = state.BestTo;
    state.WaitingForMove = No;
}

void RunTurns(const Table& table) {
    while (PlayTurn(table)) {
    }
    table.outside.RefreshBoard();
}

}  // namespace zorva
