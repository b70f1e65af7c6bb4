#include "tools/MatchGames.h"

#include "core/DecidedThrows.h"
#include "core/Ending.h"
#include "core/GameStart.h"
#include "engine/Game.h"
#include "tools/WithoutPeople.h"

namespace zorva {
namespace {

/// The world of a game that the core plays: it throws by chance and counts the move records.
class CountingWorld final : public DecidedThrows {
public:
    CountingWorld(Chance& chance, GameTotals& totals) : chance_(chance), totals_(totals) {}

    void AddLogLine(Short, const MoveRecord& record) override {
        const bool isCaptured = record.OnBehalf != 0;
        const bool isThirdSix = record.Die == 6 && record.RepeatState == 0;
        ++totals_.moves;
        totals_.captures += isCaptured;
        // Nobody decides the return of a captured piece, nor of one that a third six sends back.
        totals_.decisions += !isCaptured && !isThirdSix;
    }
    /// Whether to keep the result is the one question of a game.
    MessageAnswer ShowMessage(std::string_view, std::string_view, Short, MessageButtons) override {
        return MessageAnswer::Accepted;
    }
    void KeepResult(const GameResult& result) override {
        totals_.winner = result.winner;
        totals_.points = result.points;
    }

protected:
    Short NextThrow() override { return chance_.Face(); }

private:
    Chance& chance_;
    GameTotals& totals_;
};

std::vector<Colour> ColoursTakingPart(const Settings& settings) {
    std::vector<Colour> colours;
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        if (IsTakingPart(settings, colour)) colours.push_back(colour);
    }
    return colours;
}

}  // namespace

MatchGames::MatchGames(const Settings& settings, std::uint64_t seed)
    : settings_(WithoutPeople(settings)),
      rules_(settings),
      seed_(seed),
      takingPart_(ColoursTakingPart(settings)) {}

Colour MatchGames::DrawFirst(Chance& chance) const {
    return takingPart_[chance.Below(static_cast<std::uint32_t>(takingPart_.size()))];
}

Short MatchGames::PointsOfWinner(const engine::Position& position, engine::Seat winner) const {
    int walked = 0;
    for (const Colour colour : takingPart_) {
        const engine::Seat seat = engine::SeatOf(colour);
        if (seat != winner) walked += position.SideOf(seat).Walked();
    }
    return PointsOf(static_cast<int>(takingPart_.size()) - 1, walked);
}

GameTotals MatchGames::PlayByEngine(std::uint64_t number) const {
    Chance chance(seed_, number);
    GameTotals totals;
    totals.first = DrawFirst(chance);
    engine::Game game(rules_, {engine::Position(rules_.sixValue), engine::SeatOf(totals.first)});
    const auto winner =
        game.Play([&](const engine::Moment&) { return static_cast<unsigned>(chance.Face()); });
    if (winner) {
        totals.winner = engine::ColourAt(*winner);
        totals.points = PointsOfWinner(game.Now().position, *winner);
    }
    totals.moves = game.Now().moves;
    totals.captures = game.Captures();
    totals.decisions = game.Decisions();
    return totals;
}

GameTotals MatchGames::PlayByTheBook(std::uint64_t number) const {
    Chance chance(seed_, number);
    GameTotals totals;
    totals.first = DrawFirst(chance);
    GameState state;
    CountingWorld world(chance, totals);
    const GameContext game{state, settings_, world};
    ResetGame(game);
    PlayFrom(game, totals.first);
    return totals;
}

}  // namespace zorva
