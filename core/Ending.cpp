#include "core/Ending.h"

#include <algorithm>
#include <cmath>

#include "core/Board.h"
#include "core/Outside.h"
#include "core/Records.h"

namespace zorva {
namespace {

// With the record of the winning move among the finished ones.
void KeepWonPosition(const GameContext& game) {
    GameState won = game.state;
    NewMoveRecord(won);
    game.outside.PositionReached(won);
}

void Celebrate(const GameContext& game) {
    game.outside.PlaySound(Sound::Victory);
    game.outside.Pause(45);
    for (int blink = 0; blink < 4; ++blink) {
        game.outside.ShowTurn(game.state.CurrentColour, TurnIs::Won);
        game.outside.Pause(55);
        game.outside.ShowTurn(game.state.CurrentColour, TurnIs::Over);
        game.outside.Pause(20);
    }
}

}  // namespace

Short PointsOf(int losers, int walked) {
    if (losers == 0) return 0;
    const double remaining = static_cast<double>(losers * StepsOfColour - walked) / losers;
    const double value = std::nearbyint(remaining * 1000 / StepsOfColour);  // half to even
    return ToShort(std::min(static_cast<long>(value), 999L));
}

GameResult ResultOf(const GameState& state, const Settings& settings) {
    GameResult result;
    int walked = 0;
    result.winner = state.CurrentColour;
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        if (colour == result.winner || !IsTakingPart(settings, colour)) continue;
        result.losers.push_back(colour);
        walked += StepsWalked(state, colour);
    }
    result.points = PointsOf(static_cast<int>(result.losers.size()), walked);
    return result;
}

std::string PointsText(Short hundredths) {
    const std::string digits = std::to_string(1000 + hundredths);
    return digits.substr(1, 1) + "." + digits.substr(2);
}

std::string ResultText(const GameResult& result, const Settings& settings) {
    return "Puntos : " + PointsText(result.points) + "\nHa ganado la partida " +
           settings.PlayerName[result.winner];
}

void EndOfGame(const GameContext& game) {
    GameState& state = game.state;
    KeepWonPosition(game);
    Celebrate(game);
    game.outside.ShowTurn(state.CurrentColour, TurnIs::Won);
    const GameResult result = ResultOf(state, game.settings);
    game.outside.ShowMessage("Final de la Partida", ResultText(result, game.settings), 2,
                             MessageButtons::Acknowledge);
    const MessageAnswer keep =
        game.outside.ShowMessage("Histórico de partidas jugadas",
                                 "¿Se actualiza el Histórico de partidas?", 1, MessageButtons::YesNo);
    if (keep == MessageAnswer::Accepted) game.outside.KeepResult(result);
    state.GameInProgress = No;
    state.MoveRecordCount = 0;
}

}  // namespace zorva
