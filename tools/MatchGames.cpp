#include "tools/MatchGames.h"

#include <utility>

#include "core/DecidedThrows.h"
#include "core/Ending.h"
#include "core/GameStart.h"
#include "engine/Game.h"
#include "engine/PositionAnalysis.h"
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

}  // namespace

MatchGames::MatchGames(const GamesPlan& plan)
    : plan_(plan),
      settings_(WithoutPeople(plan.settings)),
      rules_(settings_),
      takingPart_(ColoursTakingPart(settings_)) {}

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
    if (plan_.start) return plan_.start->Start(rules_);
    return {engine::Position(rules_.sixValue), engine::SeatOf(DrawFirst(chance))};
}

// The first of the best.
engine::MoveChoice MatchGames::BestByPlayOuts(const engine::Moment& now, std::uint64_t seed) const {
    const engine::PositionAnalysis analysis(now, settings_, seed);
    if (analysis.Moves().empty()) return {};
    const bool isOnly = analysis.Moves().size() == 1;
    const auto tally = analysis.Games().Play(0, isOnly ? 0 : plan_.playOuts, 1);
    return analysis.Moves()[analysis.BestMove(tally)];
}

GameTotals MatchGames::PlayByEngine(std::uint64_t number) const {
    Chance chance(plan_.seed, number), thought(~plan_.seed, number);
    GameTotals totals;
    engine::Game game(rules_, Start(chance));
    totals.first = plan_.start ? plan_.start->position.CurrentColour : engine::ColourAt(game.Now().seat);
    const auto winner =
        game.Play([&](const engine::Moment&) { return static_cast<unsigned>(chance.Face()); },
                  [&](const engine::Moment& now) {
                      if (engine::ColourAt(now.seat) == plan_.thinker)
                          return BestByPlayOuts(now, thought.Next());
                      return engine::ChooseMove(now.position, rules_, now.seat, now.due);
                  });
    if (winner) {
        totals.winner = engine::ColourAt(*winner);
        totals.points = PointsOfWinner(game.Now().position, *winner);
    }
    totals.moves = game.Now().moves - (plan_.start ? plan_.start->position.MoveRecordCount - 1 : 0);
    totals.captures = game.Captures();
    totals.decisions = game.Decisions();
    return totals;
}

GameTotals MatchGames::PlayByTheBook(std::uint64_t number) const {
    Chance chance(plan_.seed, number);
    GameTotals totals;
    CountingWorld world(chance, plan_.start ? plan_.start->die : Short{0}, totals);
    if (plan_.start) {
        GameState state = plan_.start->content.state;
        totals.first = plan_.start->position.CurrentColour;
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
