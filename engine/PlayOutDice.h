#pragma once

#include "engine/Chance.h"
#include "engine/Moment.h"

namespace zorva::engine {

/// The dice of one play-out. Each throw depends on nothing but the seed, the number of the play-out, the
/// seat and how many throws the seat has made. So play-outs of one number that begin at different
/// moments of a game have their dice in common: where one move, or one throw, is the only difference
/// between them, luck is the same in both and falls out of the difference of their results.
class PlayOutDice {
public:
    PlayOutDice(std::uint64_t seed, std::uint64_t number)
        : start_(Mixed(Mixed(seed + GoldenStep) ^ number)) {}

    /// The face 1..6 that the seat on turn throws. Each is as likely as the others, to one part in
    /// seven hundred million.
    unsigned FaceAt(const Moment& moment) const {
        const std::uint64_t throwsOfAll = moment.throws[moment.seat] * std::uint64_t{SeatCount};
        const std::uint64_t bits = Mixed(start_ + (throwsOfAll + moment.seat + 1) * GoldenStep);
        return static_cast<unsigned>((bits >> 32) * 6 >> 32) + 1;
    }

private:
    std::uint64_t start_;
};

}  // namespace zorva::engine
