#include "core/Ending.h"

#include <algorithm>
#include <cmath>

#include "core/Board.h"
#include "core/Outside.h"

namespace zorva {
namespace {

constexpr int wholeTrack = PiecesPerColour * StepsToGoal;

int StepsOf(const GameState& state, Colour colour) {
    int steps = 0;
    for (Short piece = 1; piece <= PiecesPerColour; ++piece)
        steps += StepsFromExit(state, colour, piece);
    return steps;
}

Short PointsOf(const GameState& state, const std::vector<Colour>& losers) {
    if (losers.empty()) return 0;
    const int count = static_cast<int>(losers.size());
    int walked = 0;
    for (const Colour loser : losers) walked += StepsOf(state, loser);
    const double remaining = static_cast<double>(count * wholeTrack - walked) / count;
    const double value = std::nearbyint(remaining * 1000 / wholeTrack);  // half to even
    return ToShort(std::min(static_cast<long>(value), 999L));
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

GameResult ResultOf(const GameState& state, const Settings& settings) {
    GameResult result;
    result.winner = state.CurrentColour;
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        if (colour != result.winner && IsTakingPart(settings, colour)) result.losers.push_back(colour);
    }
    result.points = PointsOf(state, result.losers);
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
    Celebrate(game);
    game.outside.ShowTurn(state.CurrentColour, TurnIs::Won);
    const GameResult result = ResultOf(state, game.settings);
    game.outside.ShowMessage("Final de la Partida", ResultText(result, game.settings), 2,
                             MessageButtons::Acknowledge);
    const MessageAnswer keep =
        game.outside.ShowMessage("Histórico de partidas jugadas",
                                 "¿Se actualiza el Histórico de partidas?", 1, MessageButtons::YesNo);
    if (keep == MessageAnswer::Accepted) game.outside.KeepResult(result);
    game.outside.ShowTurn(state.CurrentColour, TurnIs::Over);
    state.GameInProgress = No;
    state.MoveRecordCount = 0;
}

}  // namespace zorva
