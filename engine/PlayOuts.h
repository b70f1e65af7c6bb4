#pragma once

#include <stop_token>
#include <vector>

#include "engine/GameRules.h"
#include "engine/Moment.h"

namespace zorva::engine {

/// A number that play-outs estimate: the chances of one seat to win from some moments, each times a
/// whole number, added together. One chance, the difference of two, the luck of a game: all are figures.
struct Figure {
    struct Term {
        std::size_t moment;  ///< as PlayOuts::AddMoment numbers it
        int weight;
    };

    Seat seat = 0;
    std::vector<Term> terms;

    void Add(std::size_t moment, int weight) { terms.push_back({moment, weight}); }
    /// How the chance changes from one moment to another.
    void AddChange(std::size_t from, std::size_t to);
};

/// An estimate and its standard error. A play-out knows nothing of the real dice to come, so an estimate
/// has no bias, not even one from few play-outs.
struct Estimate {
    double value = 0;
    double error = 0;
};

/// The results of a number of play-outs. They are whole numbers, so their sum depends neither on the
/// order of the play-outs nor on the number of threads.
struct Tally {
    struct Sums {
        std::int64_t values = 0;
        std::int64_t squares = 0;

        bool operator==(const Sums&) const = default;
    };

    std::uint64_t count = 0;
    std::vector<Sums> ofFigures;  ///< in the order of the figures; empty while count is 0

    Tally& operator+=(const Tally& other);
    bool operator==(const Tally&) const = default;
};

/// Games played on from several moments with common dice. All seats that take part play at their own
/// levels; a person counts as LevelOfPersons.
class PlayOuts {
public:
    PlayOuts(const Settings& settings, std::uint64_t seed)
        : rules_(WithLevelsOfPersons(settings)), seed_(seed) {}

    const GameRules& Rules() const { return rules_; }
    std::size_t Moments() const { return moments_.size(); }
    const Moment& MomentAt(std::size_t number) const { return moments_[number]; }

    /// Both return the number of what was added, from 0. A figure names moments that were added before.
    std::size_t AddMoment(const Moment& moment);
    std::size_t AddFigure(Figure figure);

    /// Plays the play-outs numbered `first` to `last` - 1, each of them from every moment. To improve an
    /// estimate step by step, the caller adds the tallies of successive ranges. After a stop request
    /// this returns an empty tally within a few milliseconds.
    Tally Play(std::uint64_t first, std::uint64_t last, unsigned threads,
               const std::stop_token& stop = {}) const;

    Estimate Of(const Tally& tally, std::size_t figure) const;

private:
    class Run;

    bool IsCertain(const Figure& figure) const;

    GameRules rules_;
    std::uint64_t seed_;
    std::vector<Moment> moments_;
    std::vector<Figure> figures_;
};

}  // namespace zorva::engine
