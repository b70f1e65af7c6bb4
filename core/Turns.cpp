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

void PassTurn(const GameContext& game, Short direction) {
    Colour colour = game.state.CurrentColour;
    do {
        colour = static_cast<Colour>(static_cast<unsigned>(colour - 1 + direction) % ColourCount + 1);
    } while (!IsTakingPart(game.settings, colour));
    game.state.CurrentColour = colour;
}

// Chooses the colour on turn and opens the record of its move.
void OpenTurn(const GameContext& game) {
    GameState& state = game.state;
    if (!state.RepeatTurn) {
        NextColour(game);
        state.SixesInRow = 0;
    }
    SkipAbsentColour(game);
    if (state.SixesInRow == 0) state.RepeatTurn = No;
    NewMoveRecord(state);
    state.DieValue = 0;
}

// The last move has ended, and the game may be left before the next turn is opened: the game is kept as
// it will stand then.
void KeepNextTurn(const GameContext& game) {
    GameState next = game.state;
    OpenTurn({next, game.settings, game.outside});
    game.outside.PositionReached(next);
}

void BeginTurn(const GameContext& game) {
    KeepNextTurn(game);
    // If throws wait for a click, a click made between two moves is kept for the next throw.
    game.outside.YieldToEvents(game.settings.PauseBetweenMoves == 1 ? UserInput::Held
                                                                    : UserInput::Handled);
    game.outside.SetScreenCursor(ScreenCursor::Default);
    OpenTurn(game);
}

void OfferThrow(const GameContext& game) {
    GameState& state = game.state;
    ShowReadyDie(game);
    game.outside.PlaySound(Sound::DieReady);
    state.ManualShiftMade = No;
    state.ManualMode = No;
    state.WaitingForThrow = game.settings.PauseBetweenMoves == 1 ? Yes : No;
    game.outside.SetScreenCursor(ScreenCursor::OfTheBoard);
    game.outside.YieldToEvents(UserInput::Handled);
    while (state.WaitingForThrow) game.outside.WaitForInput();
    game.outside.SetScreenCursor(ScreenCursor::Default);
}

void LogAndExecuteMove(const GameContext& game) {
    LogMove(game);
    game.outside.MoveBegins(game.state.MoveRecords[game.state.MoveRecordCount]);
    ExecuteMove(game, ExecutionMode::Forward, game.state.MoveRecordCount);
}

// A piece was dragged outside the rules: the move is logged, and the turn is offered again.
void PlayManualShift(const GameContext& game) {
    GameState& state = game.state;
    LogAndExecuteMove(game);
    state.ManualShiftMade = No;
    state.CurrentColour = state.ManualShiftColour;
    if (!state.RepeatTurn) PreviousColour(game);
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

void TellThirdSix(const GameContext& game, const char* text, Short lineCount) {
    game.outside.ShowMessage("Ha sacado 3 seises", text, lineCount, MessageButtons::Acknowledge);
}

// The third six sends the piece moved last back to its box, unless it is home. Returns false when
// the turn leaves no record at all.
bool PrepareThirdSixReturn(const GameContext& game) {
    GameState& state = game.state;
    const Colour colour = state.CurrentColour;
    const Short latest = LatestMoveNoBonus(state, colour, state.MoveRecordCount);
    const Short piece = state.MoveRecords[latest].Piece;
    const Square square = state.PiecePosition[colour][piece];
    state.RepeatTurn = No;
    if (piece != 0 && square == GoalSquare[colour]) {
        TellThirdSix(game,
                     "Este jugador ha sacado un 6 por tercera vez. Como la ficha que ha movido en la  "
                     "jugada  anterior ha llegado a casa no vuelve al cuadro de espera.",
                     3);
        game.outside.ClearDice();
        --state.MoveRecordCount;
        return false;
    }
    if (piece == 0 || square == 0) {
        TellThirdSix(game,
                     "Este jugador ha sacado un 6 por tercera vez. Como en el turno anterior no pudo "
                     "mover, no vuelve ninguna ficha al cuadro de espera.",
                     3);
    } else {
        TellThirdSix(game,
                     "Este jugador ha sacado un 6 por tercera vez y la ficha que ha movido en la "
                     "jugada anterior vuelve al cuadro de espera.",
                     2);
    }
    state.MovePiece = piece;
    state.MoveFrom = square;
    state.MoveTo = 0;
    return true;
}

void MakeMoveForPlayer(const GameContext& game) {
    TakeAdvisedMove(game.state);
    game.outside.Pause(15);
    ShowChosenMove(game);
}

// Finds the move of this throw, or waits until the person has chosen one. Returns false when the game
// was abandoned in that wait.
bool DecideMove(const GameContext& game) {
    GameState& state = game.state;
    ChooseComputerMove(state, game.settings);
    state.WaitingForMove = Yes;
    const bool byPerson = game.settings.PlayerType[state.CurrentColour] == 2;
    if (state.BestPiece == 0) {
        state.WaitingForMove = No;
        state.MovePiece = state.MoveFrom = state.MoveTo = 0;
    } else if (!byPerson || state.LegalMoveCount == 1) {
        MakeMoveForPlayer(game);
    } else if (game.settings.Tutor == 1) {
        ShowChosenMove(game);
    }
    if (state.WaitingForMove) game.outside.SetScreenCursor(ScreenCursor::OfTheBoard);
    while (state.WaitingForMove) game.outside.WaitForInput();
    game.outside.SetScreenCursor(ScreenCursor::Default);
    return state.GameInProgress != No;
}

// The captured piece returns to its box by a record of its own.
void ReturnCapturedPiece(const GameContext& game) {
    GameState& state = game.state;
    const Short report = state.CaptureReport;
    NewMoveRecord(state);
    state.MovePiece = PieceOf(CapturedPieceOn(state, state.MoveTo));
    state.MoveFrom = state.MoveTo;
    state.MoveTo = 0;
    state.DieValue = 0;
    state.MoveCount = 0;
    LogAndExecuteMove(game);
    if (report == 1) {
        state.ThrowNext = No;
        state.RepeatTurn = Yes;
        state.MoveCount = CaptureBonus;
    } else {
        game.outside.ClearDice();
    }
}

// Returns true when the same throw moves a second piece.
bool CarryOutMove(const GameContext& game) {
    GameState& state = game.state;
    const Colour colour = state.CurrentColour;
    LogAndExecuteMove(game);
    if (state.MovePiece == 0 && state.SixesInRow == 0) {
        game.outside.ClearDice();
        return false;
    }
    if (state.CaptureReport != 0) {
        ReturnCapturedPiece(game);
        if (state.SecondMovePending == 0) return false;
    }
    if (state.MoveTo == GoalSquare[colour] && state.PiecesHome[colour] < PiecesPerColour) {
        state.RepeatTurn = Yes;
        state.ThrowNext = No;
        state.MoveCount = ArrivalBonus;
        return false;
    }
    if (HasWon(state)) return false;
    if (state.SecondMovePending == 1) return true;
    if (!state.RepeatTurn) game.outside.ClearDice();
    game.outside.Pause(10);
    return false;
}

// From the throw to its last move. Returns false when the game was abandoned.
bool PlayThrow(const GameContext& game) {
    GameState& state = game.state;
    const bool isThirdSix = CountSixes(state);
    if (isThirdSix && !PrepareThirdSixReturn(game)) return true;
    if (!state.GameInProgress) return false;  // abandoned during that message
    if (!isThirdSix) state.SecondMovePending = 0;
    for (bool isChosen = isThirdSix;; isChosen = false) {
        if (!isChosen && !DecideMove(game)) return false;
        if (!CarryOutMove(game)) return true;
        NewMoveRecord(state);
    }
}

// Thrown moves alone never reach the limit, but pieces can be dragged by hand any number of times.
void EndLongestGame(const GameContext& game) {
    game.outside.ShowMessage("Partida demasiado larga",
                             "La partida ha llegado a las 32.700 jugadas y no caben más en la cinta. "
                             "Termina aquí, sin ganador.",
                             2, MessageButtons::Acknowledge);
    game.state.GameInProgress = No;
    game.state.MoveRecordCount = 0;
}

TurnIs WhatIsDue(const GameState& state) {
    if (state.ThrowNext) return TurnIs::Throws;
    return state.MoveCount == CaptureBonus ? TurnIs::BonusForCapture : TurnIs::BonusForArrival;
}

// Begins the next turn, or ends the game. Returns false when the game is over or was abandoned.
bool GoesOn(const GameContext& game) {
    if (HasWon(game.state)) {
        EndOfGame(game);
        return false;
    }
    BeginTurn(game);
    if (game.state.GameInProgress && game.state.MoveRecordCount > LongestGame) EndLongestGame(game);
    return game.state.GameInProgress != No;
}

// One pass of the driver: a throw, a bonus move or a displacement by hand. Returns false when the game
// was abandoned.
bool PlayTurn(const GameContext& game) {
    GameState& state = game.state;
    game.outside.ShowTurn(state.CurrentColour, WhatIsDue(state));
    if (state.ThrowNext) {
        OfferThrow(game);
        if (!state.GameInProgress) return false;
        if (state.ManualShiftMade) {
            PlayManualShift(game);
            return true;
        }
        ThrowDie(game);
        state.MoveCount = state.DieValue;
    }
    state.ThrowNext = Yes;
    return PlayThrow(game);
}

}  // namespace

void NextColour(const GameContext& game) {
    PassTurn(game, game.state.PlayDirection);
}

void SkipAbsentColour(const GameContext& game) {
    if (IsTakingPart(game.settings, game.state.CurrentColour)) return;
    NextColour(game);
    game.state.SixesInRow = 0;
    game.state.ThrowNext = Yes;
}

void PreviousColour(const GameContext& game) {
    PassTurn(game, static_cast<Short>(-game.state.PlayDirection));
}

void ShowReadyDie(const GameContext& game) {
    const Short face = game.state.RepeatTurn ? Short{6} : Short{5};
    game.outside.DrawDie(game.state.CurrentColour, face, DieIs::Ready);
}

void ShowChosenMove(const GameContext& game) {
    const GameState& state = game.state;
    if (state.BestPiece == 0) return;
    game.outside.ShowChosenMove(CodeOf(state.CurrentColour, state.BestPiece), state.BestFrom,
                                state.BestTo);
}

void TakeAdvisedMove(GameState& state) {
    state.MovePiece = state.BestPiece;
    state.MoveFrom = state.BestFrom;
    state.MoveTo = state.BestTo;
    state.WaitingForMove = No;
}

void RunTurns(const GameContext& game) {
    while (GoesOn(game) && PlayTurn(game)) {
    }
    game.outside.RefreshBoard(PiecesShown::OnTheirSquares);
}

}  // namespace zorva
