#include "engine/PlayOuts.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <map>
#include <mutex>
#include <thread>

#include "engine/Game.h"
#include "engine/PlayOutDice.h"

namespace zorva::engine {
namespace {

constexpr Seat nobody = SeatCount;

}  // namespace

void Figure::AddChange(std::size_t from, std::size_t to) {
    Add(to, 1);
    Add(from, -1);
}

Tally& Tally::operator+=(const Tally& other) {
    if (other.count == 0) return *this;
    ofFigures.resize(other.ofFigures.size());
    for (std::size_t figure = 0; figure < ofFigures.size(); ++figure) {
        ofFigures[figure].values += other.ofFigures[figure].values;
        ofFigures[figure].squares += other.ofFigures[figure].squares;
    }
    count += other.count;
    return *this;
}

/// One range of play-outs, handed out to threads.
class PlayOuts::Run {
public:
    Run(const PlayOuts& all, std::uint64_t first, std::uint64_t last, const std::stop_token& stop)
        : all_(all), next_(first), last_(last), stop_(stop) {}

    Tally Play(unsigned threads) {
        {
            std::vector<std::jthread> others;
            for (unsigned thread = 1; thread < threads; ++thread)
                others.emplace_back([this] { PlayShare(); });
            PlayShare();
        }
        return stop_.stop_requested() ? Tally{} : total_;
    }

private:
    void PlayShare() {
        Tally mine;
        std::vector<Seat> winners(all_.moments_.size());
        mine.ofFigures.resize(all_.figures_.size());
        for (std::uint64_t number = next_++; number < last_ && PlayOne(number, winners);
             number = next_++)
            Count(mine, winners);
        const std::lock_guard lock(mutex_);
        total_ += mine;
    }

    // Returns false when it was stopped.
    bool PlayOne(std::uint64_t number, std::vector<Seat>& winners) const {
        const PlayOutDice dice(all_.seed_, number);
        for (std::size_t moment = 0; moment < winners.size(); ++moment) {
            if (stop_.stop_requested()) return false;
            Game game(all_.rules_, all_.moments_[moment]);
            const auto winner = game.Play([&](const Moment& now) { return dice.FaceAt(now); });
            winners[moment] = winner.value_or(nobody);
        }
        return true;
    }

    void Count(Tally& tally, const std::vector<Seat>& winners) const {
        ++tally.count;
        for (std::size_t number = 0; number < all_.figures_.size(); ++number) {
            const Figure& figure = all_.figures_[number];
            std::int64_t value = 0;
            for (const Figure::Term& term : figure.terms)
                value += winners[term.moment] == figure.seat ? term.weight : 0;
            tally.ofFigures[number].values += value;
            tally.ofFigures[number].squares += value * value;
        }
    }

    const PlayOuts& all_;
    std::atomic<std::uint64_t> next_;
    const std::uint64_t last_;
    const std::stop_token stop_;
    std::mutex mutex_;
    Tally total_;  // guarded by mutex_
};

std::size_t PlayOuts::AddMoment(const Moment& moment) {
    moments_.push_back(moment);
    return moments_.size() - 1;
}

// Terms of one moment become one: in sums over a game most of them cancel out.
std::size_t PlayOuts::AddFigure(Figure figure) {
    std::map<std::size_t, int> weights;
    for (const Figure::Term& term : figure.terms) weights[term.moment] += term.weight;
    figure.terms.clear();
    for (const auto& [moment, weight] : weights) {
        if (weight != 0) figure.Add(moment, weight);
    }
    figures_.push_back(std::move(figure));
    return figures_.size() - 1;
}

Tally PlayOuts::Play(std::uint64_t first, std::uint64_t last, unsigned threads,
                     const std::stop_token& stop) const {
    return Run(*this, first, last, stop).Play(threads);
}

// Once a game is won its result is known, not estimated.
bool PlayOuts::IsCertain(const Figure& figure) const {
    return std::all_of(figure.terms.begin(), figure.terms.end(),
                       [&](const Figure::Term& term) { return moments_[term.moment].IsWon(); });
}

// What n play-outs never showed may still happen once in about n: that much is added to the variance.
// Without it a seat that won none of them would have the chance 0 with the error 0.
Estimate PlayOuts::Of(const Tally& tally, std::size_t figure) const {
    if (tally.count == 0) return {};
    const auto count = static_cast<double>(tally.count);
    const double mean = static_cast<double>(tally.ofFigures[figure].values) / count;
    if (IsCertain(figures_[figure])) return {mean, 0};
    const double square = static_cast<double>(tally.ofFigures[figure].squares) / count;
    return {mean, std::sqrt((std::max(square - mean * mean, 0.0) + 1 / count) / count)};
}

}  // namespace zorva::engine
