#include "core/Ending.h"

#include <cmath>

#include "core/Board.h"
#include "core/Outside.h"

namespace zorva {
namespace {

constexpr int wholeWay = PiecesPerColour * StepsToGoal;

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
    const double remaining = static_cast<double>(count * wholeWay - walked) / count;
    const double value = std::nearbyint(remaining * 1000 / wholeWay);  // half to even
    return ToShort(std::min(static_cast<long>(value), 999L));
}

void Celebrate(const Table& table) {
    table.outside.PlaySound(14);
    table.outside.Pause(45);
    for (int blink = 0; blink < 4; ++blink) {
        table.outside.DrawWinner(table.state.CurrentColour, true);
        table.outside.Pause(55);
        table.outside.DrawWinner(table.state.CurrentColour, false);
        table.outside.Pause(20);
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

void EndOfGame(const Table& table) {
    GameState& state = table.state;
    Celebrate(table);
    const GameResult result = ResultOf(state, table.settings);
    table.outside.ShowMessage("Final de la Partida", ResultText(result, table.settings), 2,
                              MessageButtons::Acknowledge);
    const MessageAnswer keep =
        table.outside.ShowMessage("Histórico de partidas jugadas",
                                  "¿Se actualiza el Histórico de partidas?", 1, MessageButtons::YesNo);
    if (keep == MessageAnswer::Accepted) table.outside.KeepResult(result);
    table.outside.RefreshBoard();
    state.GameInProgress = No;
    state.MoveRecordCount = 0;
}

}  // namespace zorva
