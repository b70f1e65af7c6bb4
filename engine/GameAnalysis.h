#pragma once

#include "engine/PlayOuts.h"

namespace zorva::engine {

/// What one record of a game was worth to the seat on turn, in its own chance to win.
struct RecordWorth {
    std::array<Estimate, SeatCount> chances;  ///< of all seats, after the record
    Estimate luck;
    Estimate choice;
    Estimate cost;
    Square better = 0;  ///< where the piece stood that should have moved, if there is a cost; 0: the box
};

/// What the records of a whole game were worth to a seat. `own` are the sums over its own throws and
/// moves. All others are sums over the throws, moves and displacements of all seats, so that
/// start + luck + choice + shift = end.
struct SeatWorth {
    struct {
        Estimate luck;
        Estimate choice;
        Estimate cost;
    } own;
    Estimate start, luck, choice, shift, end;
};

/// Divides the changes of the chances in a game among dice, choices and displacements:
///
/// - The luck of a throw is the chance after it less the chance before it, which is the mean over its
///   six faces. After it the seat is taken to choose at its own level.
/// - A choice is the chance after the move made less the chance with the move of the seat's level. A
///   computer always makes that move, a person counts as LevelOfPersons.
/// - The cost of a person's choice is the best legal move's chance less that of the move made, where
///   there were different moves. If that is less than twice its error, it is 0.
/// - A displacement by hand is a shift, and so is all else that no throw and no move explains: a turn
///   that another colour has than the rules say, as a file may have it.
///
/// A captured piece's return and the second piece out with one five are worth nothing: the record before
/// has their worth. The luck of a third six that leaves no record stands with the record of the second.
///
/// The play-outs from all moments of the game throw the same dice: a throw that a moment has before it
/// stands in for the one that the play-out would make. Common dice make the errors of differences small,
/// and those of their sums smaller still. The analysis takes the rules and levels of the given settings
/// for the whole game, even if the players changed them during it.
class GameAnalysis {
public:
    /// `game` is a game in progress, or won, as PositionReached (core/Outside.h) hands it over. Its
    /// records must be sound: each can be carried out where the ones before it lead.
    ///
    /// Only the records from `first` on are analysed; it must begin a throw, a bonus move or a
    /// displacement. So a game that goes on needs no more than an analysis of its new records: with the
    /// same seed and as many play-outs it begins with the very chances at which the one before it ended,
    /// and all sums add up.
    GameAnalysis(const GameState& game, const Settings& settings, std::uint64_t seed,
                 std::size_t first = 1);

    /// The games to be played on, from some moments for each record. Estimates are read with their
    /// tally.
    const PlayOuts& Games() const { return games_; }

    /// The number of records analysed.
    std::size_t Records() const { return records_.size(); }
    /// The worth of a record from `first` on, numbered as in GameState::MoveRecords.
    RecordWorth OfRecord(std::size_t record, const Tally& tally) const;
    SeatWorth OfSeat(Seat seat, const Tally& tally) const;

    /// The moment after a record from `first` on, or before them all for `first` - 1. After a capture
    /// that is the one after the captured piece's return.
    const Moment& MomentAfter(std::size_t record) const;

private:
    class Builder;

    /// The numbers of the figures of one record.
    struct RecordFigures {
        Seat seat;          ///< on turn
        std::size_t after;  ///< the moment after the record, which is no figure
        std::size_t luck, choice;
        /// Each other move less the one made, and where its piece stands.
        std::vector<std::pair<std::size_t, Square>> better;
    };
    struct SeatFigures {
        std::size_t ownLuck, ownChoice, luck, choice, shift;
    };

    Estimate ChanceAt(std::size_t moment, Seat seat, const Tally& tally) const;
    /// And where the piece of the best other move stands.
    std::pair<Estimate, Square> CostOf(const RecordFigures& record, const Tally& tally) const;
    Estimate CostsOf(Seat seat, const Tally& tally) const;

    PlayOuts games_;
    std::size_t first_;
    std::vector<RecordFigures> records_;  // from first_ on
    std::array<SeatFigures, SeatCount> seats_{};
    std::size_t end_ = 0;  // the moment at which the records end
};

}  // namespace zorva::engine
