#include "tools/MatchGames.h"

#include <utility>

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
    /// The first throw is `die`, unless that is 0.
    CountingWorld(Chance& chance, Short die, GameTotals& totals)
        : chance_(chance), die_(die), totals_(totals) {}

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
    Short NextThrow() override {
        const Short known = std::exchange(die_, Short{0});
        return known != 0 ? known : chance_.Face();
    }

private:
    Chance& chance_;
    Short die_;
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

MatchGames::MatchGames(const Settings& settings, std::uint64_t seed, const GameInFile* start)
    : settings_(WithoutPeople(settings)),
      rules_(settings),
      seed_(seed),
      start_(start),
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

engine::Moment MatchGames::Start(Chance& chance) const {
    if (start_) return start_->Start(rules_);
    return {engine::Position(rules_.sixValue), engine::SeatOf(DrawFirst(chance))};
}

GameTotals MatchGames::PlayByEngine(std::uint64_t number) const {
    Chance chance(seed_, number);
    GameTotals totals;
    const engine::Moment start = Start(chance);
    engine::Game game(rules_, start);
    totals.first = start_ ? start_->position.CurrentColour : engine::ColourAt(start.seat);
    const auto winner =
        game.Play([&](const engine::Moment&) { return static_cast<unsigned>(chance.Face()); });
    if (winner) {
        totals.winner = engine::ColourAt(*winner);
        totals.points = PointsOfWinner(game.Now().position, *winner);
    }
    totals.moves = game.Now().moves - (start_ ? start_->position.MoveRecordCount - 1 : 0);
    totals.captures = game.Captures();
    totals.decisions = game.Decisions();
    return totals;
}

GameTotals MatchGames::PlayByTheBook(std::uint64_t number) const {
    Chance chance(seed_, number);
    GameTotals totals;
    CountingWorld world(chance, start_ ? start_->die : Short{0}, totals);
    if (start_) {
        GameState state = start_->content.state;
        totals.first = start_->position.CurrentColour;
        ContinueGame({state, settings_, world});
        return totals;
    }
    GameState state;
    totals.first = DrawFirst(chance);
    const GameContext game{state, settings_, world};
    ResetGame(game);
    PlayFrom(game, totals.first);
    return totals;
}

}  // namespace zorva
