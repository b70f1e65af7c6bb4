#include "engine/GameAnalysis.h"

#include <algorithm>
#include <cmath>

#include "core/Execution.h"
#include "core/Records.h"
#include "core/SilentOutside.h"
#include "engine/Game.h"

namespace zorva::engine {
namespace {

/// Whose turn it is, and what is due.
struct Turn {
    Colour colour = 0;
    Short sixes = 0;
    Short bonus = 0;  ///< squares, 0 when a throw is due

    bool operator==(const Turn&) const = default;
};

/// The turn before a record. Only the record of a six tells how many sixes were thrown before; others
/// leave that to the turn that `expected` says.
Turn TurnBefore(const MoveRecord& record, const Turn& expected) {
    const Colour colour = ColourOnTurn(record);
    Turn turn = colour == expected.colour ? expected : Turn{colour};
    if (record.Die == 6)
        turn.sixes = record.RepeatState == 0 ? Short{2} : ToShort(record.RepeatState - 1);
    return turn;
}

// A third six is recorded with no six in a row, so the turn passes after it.
Turn TurnAfter(const MoveRecord& record, const GameRules& rules) {
    const Colour colour = ColourOnTurn(record);
    const Short bonus = BonusDueAfter(record);
    const bool goesOn = bonus != 0 || record.RepeatState != 0 || record.Manual;
    if (goesOn) return {colour, record.RepeatState, bonus};
    return {ColourAt(rules.next[SeatOf(colour)]), 0, 0};
}

// Which of two pieces on one square moves makes no difference.
bool IsSameMove(const Moment& moment, const MoveChoice& one, const MoveChoice& other) {
    if (one.piece == NoPiece || other.piece == NoPiece) return one.piece == other.piece;
    const Side& side = moment.position.SideOf(moment.seat);
    return side.StepOf(one.piece) == side.StepOf(other.piece) && one.to == other.to;
}

Square FromOf(const Moment& moment, const MoveChoice& move) {
    return ToShort(SquareAt(moment.seat, moment.position.SideOf(moment.seat).StepOf(move.piece)));
}

MoveChoice MoveOf(const MoveRecord& record) {
    if (record.Piece == 0) return {};
    return {static_cast<unsigned>(record.Piece - 1), StepOf(SeatOf(record.MoverColour), record.To)};
}

}  // namespace

/// Goes through the records, carries them out, and adds a moment before each throw and each decision,
/// and the figures between these moments.
class GameAnalysis::Builder {
public:
    Builder(GameAnalysis& analysis, const GameState& game, const Settings& settings)
        : analysis_(analysis),
          unused_(analysis.games_),
          games_(analysis.games_),
          game_(game),
          settings_(settings) {
        board_.SixValue = game.SixValue;
        board_.MoveRecords = game.MoveRecords;
        board_.MoveRecordCount = 1;
        worths_.resize(static_cast<std::size_t>(game.MoveRecordCount - 1));
    }

    void Build() {
        expected_ = worths_.empty() ? TurnAtEnd() : TurnBefore(RecordNow(), {});
        Restart(MomentOf(expected_));
        for (; board_.MoveRecordCount < game_.MoveRecordCount; ++board_.MoveRecordCount) {
            if (!FollowsByItself(board_, board_.MoveRecordCount)) Begin(RecordNow());
            ExecuteMove({board_, settings_, outside_}, ExecutionMode::Forward, board_.MoveRecordCount);
            expected_ = TurnAfter(RecordNow(), games_.Rules());
        }
        const Moment end = Reach(TurnAtEnd());
        if (worths_.size() < analysis_.first_) Restart(end);
        AddFigures();
        analysis_.end_ = here_;
    }

private:
    /// What the change from one moment to the next comes from.
    enum class Cause { Nothing, Luck, Choice, Shift };

    struct Worth {
        Figure luck, choice;
        std::vector<std::pair<Figure, Square>> better;
        std::size_t after = 0;
    };

    const MoveRecord& RecordNow() const { return board_.MoveRecords[board_.MoveRecordCount]; }

    Turn TurnAtEnd() const {
        if (HasWon(game_)) return expected_;
        return {game_.CurrentColour, game_.SixesInRow, game_.ThrowNext ? Short{0} : game_.MoveCount};
    }

    /// The moment of the board with that turn.
    Moment MomentOf(const Turn& turn) {
        board_.CurrentColour = turn.colour;
        board_.SixesInRow = turn.sixes;
        board_.MoveCount = turn.bonus;
        board_.ThrowNext = turn.bonus == 0 ? Yes : No;
        Moment moment(board_);
        moment.throws = throws_;
        return moment;
    }

    void AddChange(Cause cause, std::size_t record, std::size_t to) {
        Worth& worth = worths_[record];
        if (cause == Cause::Shift) {
            shift_.AddChange(here_, to);
        } else if (cause == Cause::Luck) {
            for (Figure* figure : {&worth.luck, &luck_, &ownLuck_[worth.luck.seat]})
                figure->AddChange(here_, to);
        } else {
            for (Figure* figure : {&worth.choice, &choice_, &ownChoice_[worth.choice.seat]})
                figure->AddChange(here_, to);
        }
        here_ = to;
    }

    /// Forgets all that was added before that moment.
    void Restart(const Moment& moment) {
        games_ = unused_;
        luck_ = choice_ = shift_ = {};
        ownLuck_ = ownChoice_ = {};
        here_ = games_.AddMoment(moment);
    }

    /// Ends the step begun last at the moment that the rules say comes next, and goes on to that of the
    /// given turn.
    Moment Reach(const Turn& turn) {
        const Moment next = MomentOf(expected_);
        if (cause_ != Cause::Nothing) AddChange(cause_, record_, games_.AddMoment(next));
        for (const auto& [moment, from] : others_) {
            worths_[record_].better.push_back({{}, from});
            worths_[record_].better.back().first.AddChange(here_, moment);
        }
        others_.clear();
        for (; ended_ + 1 < static_cast<std::size_t>(board_.MoveRecordCount); ++ended_) {
            worths_[ended_].after = here_;
        }
        cause_ = Cause::Nothing;
        return turn == expected_ ? next : Leap(next, turn);
    }

    /// Goes to a turn that the rules do not say: a third six has left no record, or the turn was
    /// changed by hand.
    Moment Leap(const Moment& from, const Turn& turn) {
        const bool isHome = from.thrownPiece != NoPiece &&
                            from.position.SideOf(from.seat).StepOf(from.thrownPiece) == GoalStep;
        const Turn next{ColourAt(games_.Rules().next[from.seat])};
        const bool isThirdSix = from.sixes == 2 && from.IsThrowDue() && isHome && turn == next;
        throws_[from.seat] += isThirdSix;
        const Moment to = MomentOf(turn);
        AddChange(isThirdSix ? Cause::Luck : Cause::Shift, latestSix_, games_.AddMoment(to));
        return to;
    }

    /// Begins the step of a record. Its change ends where the next step begins.
    void Begin(const MoveRecord& record) {
        const Moment moment = Reach(TurnBefore(record, expected_));
        Game game(games_.Rules(), moment);
        record_ = static_cast<std::size_t>(board_.MoveRecordCount - 1);
        if (record_ + 1 == analysis_.first_) Restart(moment);
        worths_[record_].luck.seat = worths_[record_].choice.seat = moment.seat;
        if (record.Manual) {
            cause_ = Cause::Shift;
            return;
        }
        if (record.Die != 0) {
            cause_ = Cause::Luck;
            game.TakeThrow(static_cast<unsigned>(record.Die));
            throws_ = game.Now().throws;
            latestSix_ = record.Die == 6 ? record_ : latestSix_;
        }
        if (!game.Now().IsThrowDue()) Decide(game, record);
    }

    /// A bonus move that the level chooses changes nothing by chance: the moments before and after it
    /// have the same play-outs.
    void Decide(const Game& game, const MoveRecord& record) {
        const Moment& now = game.Now();
        const MoveChoice made = MoveOf(record);
        const MoveChoice expected = ChooseMove(now.position, games_.Rules(), now.seat, now.due);
        const bool isExpected = IsSameMove(now, made, expected);
        if (!isExpected) {
            if (cause_ == Cause::Luck) AddChange(cause_, record_, MomentAfter(game, expected));
            cause_ = Cause::Choice;
        }
        if (settings_.PlayerType[record.MoverColour] != 2) return;
        if (!isExpected) others_.emplace_back(here_, FromOf(now, expected));
        AddOthers(game, {made, expected});
    }

    /// The legal moves besides those that have a moment.
    void AddOthers(const Game& game, std::vector<MoveChoice> known) {
        const Moment& now = game.Now();
        for (const MoveChoice& move : LegalMoves(now.position, games_.Rules(), now.seat, now.due)) {
            const auto isSame = [&](const MoveChoice& other) { return IsSameMove(now, move, other); };
            if (std::any_of(known.begin(), known.end(), isSame)) continue;
            known.push_back(move);
            others_.emplace_back(MomentAfter(game, move), FromOf(now, move));
        }
    }

    std::size_t MomentAfter(const Game& game, const MoveChoice& move) {
        Game other = game;
        other.Make(move);
        return games_.AddMoment(other.Now());
    }

    // ------------------------------------------------------------------------------- figures

    /// The chances come first, four of each moment: ChanceAt reads them.
    void AddFigures() {
        for (std::size_t moment = 0; moment < games_.Moments(); ++moment) {
            for (Seat seat = 0; seat < SeatCount; ++seat) games_.AddFigure({seat, {{moment, 1}}});
        }
        for (std::size_t record = analysis_.first_; record <= worths_.size(); ++record)
            analysis_.records_.push_back(FiguresOf(worths_[record - 1]));
        for (Seat seat = 0; seat < SeatCount; ++seat) {
            analysis_.seats_[seat] = {AddFigure(seat, ownLuck_[seat]), AddFigure(seat, ownChoice_[seat]),
                                      AddFigure(seat, luck_), AddFigure(seat, choice_),
                                      AddFigure(seat, shift_)};
        }
    }

    RecordFigures FiguresOf(const Worth& worth) {
        const Seat seat = worth.luck.seat;
        RecordFigures figures{
            seat, worth.after, AddFigure(seat, worth.luck), AddFigure(seat, worth.choice), {}};
        for (const auto& [figure, from] : worth.better)
            figures.better.emplace_back(AddFigure(seat, figure), from);
        return figures;
    }

    std::size_t AddFigure(Seat seat, Figure figure) {
        figure.seat = seat;
        return games_.AddFigure(std::move(figure));
    }

    GameAnalysis& analysis_;
    const PlayOuts unused_;
    PlayOuts& games_;
    const GameState& game_;
    const Settings& settings_;
    GameState board_;  // where the record MoveRecordCount is about to be carried out
    SilentOutside outside_;
    std::array<unsigned, SeatCount> throws_{};

    Turn expected_;                 // the turn that the rules say comes next
    std::size_t here_ = 0;          // the moment at which the step begins
    Cause cause_ = Cause::Nothing;  // of its change
    std::size_t record_ = 0;        // whose worth it is, counted from 0
    // The moments after other moves than the one made, and the squares from which they are made.
    std::vector<std::pair<std::size_t, Square>> others_;
    std::size_t ended_ = 0;  // records that have their moment after
    std::size_t latestSix_ = 0;

    std::vector<Worth> worths_;
    std::array<Figure, SeatCount> ownLuck_, ownChoice_;
    Figure luck_, choice_, shift_;
};

GameAnalysis::GameAnalysis(const GameState& game, const Settings& settings, std::uint64_t seed,
                           std::size_t first)
    : games_(settings, seed), first_(first) {
    Builder(*this, game, settings).Build();
}

Estimate GameAnalysis::ChanceAt(std::size_t moment, Seat seat, const Tally& tally) const {
    return games_.Of(tally, moment * SeatCount + seat);
}

// The best of several estimates seems better than it is, so a cost must be more than its error.
std::pair<Estimate, Square> GameAnalysis::CostOf(const RecordFigures& record, const Tally& tally) const {
    std::pair<Estimate, Square> cost;
    for (const auto& [figure, from] : record.better) {
        const Estimate better = games_.Of(tally, figure);
        if (cost.first.error == 0 || better.value > cost.first.value) cost = {better, from};
    }
    if (cost.first.value < 2 * cost.first.error) cost.first.value = 0;
    return cost;
}

// The costs of different records are nearly independent of one another.
Estimate GameAnalysis::CostsOf(Seat seat, const Tally& tally) const {
    Estimate sum;
    for (const RecordFigures& record : records_) {
        if (record.seat != seat) continue;
        const Estimate cost = CostOf(record, tally).first;
        sum.value += cost.value;
        sum.error = std::hypot(sum.error, cost.error);
    }
    return sum;
}

const Moment& GameAnalysis::MomentAfter(std::size_t record) const {
    return games_.MomentAt(record < first_ ? 0 : records_[record - first_].after);
}

RecordWorth GameAnalysis::OfRecord(std::size_t record, const Tally& tally) const {
    const RecordFigures& figures = records_[record - first_];
    const auto [cost, better] = CostOf(figures, tally);
    RecordWorth worth{
        {}, games_.Of(tally, figures.luck), games_.Of(tally, figures.choice), cost, better};
    for (Seat seat = 0; seat < SeatCount; ++seat) {
        worth.chances[seat] = ChanceAt(figures.after, seat, tally);
    }
    return worth;
}

SeatWorth GameAnalysis::OfSeat(Seat seat, const Tally& tally) const {
    const SeatFigures& figures = seats_[seat];
    return {
        {games_.Of(tally, figures.ownLuck), games_.Of(tally, figures.ownChoice), CostsOf(seat, tally)},
        ChanceAt(0, seat, tally),
        games_.Of(tally, figures.luck),
        games_.Of(tally, figures.choice),
        games_.Of(tally, figures.shift),
        ChanceAt(end_, seat, tally)};
}

}  // namespace zorva::engine
