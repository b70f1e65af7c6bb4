#include "tools/DiceCommand.h"

#include <algorithm>
#include <array>
#include <bit>
#include <fstream>
#include <functional>
#include <iomanip>
#include <memory>
#include <ostream>
#include <random>

#include "core/Dice.h"
#include "core/SilentOutside.h"
#include "engine/Chance.h"
#include "tools/CommandLine.h"
#include "tools/DiceStatistics.h"
#include "tools/Failure.h"

namespace zorva {
namespace {

constexpr std::uint64_t mostThrows = 10'000'000'000;  // takes about half an hour

/// A world that only rolls the die. As in the window, each throw shows ten faces, and the last counts.
class RollingWorld : public SilentOutside {
public:
    explicit RollingWorld(std::function<Short()> roll) : roll_(std::move(roll)) {}
    Short RollFace() override { return roll_(); }

private:
    std::function<Short()> roll_;
};

/// The operating system's generator, which the window uses, too, and with the same distribution.
class SystemGenerator {
public:
    using result_type = std::uint32_t;
    static constexpr result_type min() { return 0; }
    static constexpr result_type max() { return UINT32_MAX; }

    result_type operator()() {
        std::array<char, sizeof(result_type)> bytes{};
        if (!device_.read(bytes.data(), bytes.size())) throw Failure("cannot read /dev/urandom");
        return std::bit_cast<result_type>(bytes);
    }

private:
    std::ifstream device_{"/dev/urandom", std::ios::binary};
};

// Each call of the result rolls one face.
std::function<Short()> RollsOf(const CommandLine& options) {
    if (options.Has("--system") == options.Has("--seed")) {
        throw Failure("dice needs either --seed S or --system");
    }
    if (options.Has("--system")) {
        // Shared, because std::function copies what it holds and a stream cannot be copied.
        return [system = std::make_shared<SystemGenerator>()] {
            return std::uniform_int_distribution<Short>(1, 6)(*system);
        };
    }
    return
        [chance = Chance(options.Number("--seed", 0, UINT64_MAX))]() mutable { return chance.Face(); };
}

// Throws through ThrowDie, the procedure of the game, so
// that its ten faces are part of what is measured.
DiceStatistics Throw(std::uint64_t throws, std::function<Short()> rolls) {
    DiceStatistics statistics;
    GameState state;
    const Settings settings;
    RollingWorld world(std::move(rolls));
    const GameContext game{state, settings, world};
    for (std::uint64_t number = 0; number < throws; ++number) {
        // The colours throw in turn, so that each has a quarter of the throws.
        state.CurrentColour = static_cast<Colour>(1 + number % ColourCount);
        ThrowDie(game);
        statistics.Add(state.CurrentColour, state.DieValue);
    }
    return statistics;
}

// One line per count, in columns that tools/measure_dice.py takes apart by their words.
void Print(std::ostream& out, const DiceTest& test) {
    const std::uint64_t total = test.Total();
    out << test.name << '\n' << std::fixed << std::setprecision(1);
    for (const DiceCount& count : test.counts) {
        const Band band = BandOf(count, total);
        const double counted = static_cast<double>(count.counted);
        const bool inside = counted >= band.low && counted <= band.high;
        out << "  " << std::left << std::setw(10) << count.name << std::right << std::setw(12)
            << count.counted << "  expected " << std::setw(13) << band.expected << "  band "
            << std::setw(13) << std::max(band.low, 0.0) << " .. " << std::setw(13) << band.high
            << (inside ? "\n" : "  outside\n");
    }
    out << std::setprecision(4) << "  chi-square " << test.ChiSquare() << " with " << test.Degrees()
        << " degrees of freedom\n\n";
}

}  // namespace

void DiceCommand(const std::vector<std::string>& arguments, std::ostream& out) {
    const CommandLine options(arguments, {"--throws", "--seed"}, {"--system"});
    const std::uint64_t throws = options.Number("--throws", 1, mostThrows);
    const DiceStatistics statistics = Throw(throws, RollsOf(options));
    for (const DiceTest& test : statistics.Tests()) Print(out, test);
    out << "When the die is fair, one count in a hundred lies outside its band.\n";
}

}  // namespace zorva
