#include "tools/AnalyseCommand.h"

#include <algorithm>
#include <cmath>
#include <concepts>
#include <iomanip>
#include <ostream>

#include "engine/GameAnalysis.h"
#include "engine/PositionAnalysis.h"
#include "tools/GameInFile.h"

namespace zorva {
namespace {

using engine::Estimate;
using engine::GameAnalysis;
using engine::PlayOuts;
using engine::PositionAnalysis;
using engine::Tally;

constexpr std::uint64_t mostPlayOuts = 1'000'000'000;
constexpr std::uint64_t stepsOfProgress = 50;

/// How the games are played on.
struct Effort {
    std::uint64_t playOuts;
    std::uint64_t seed;
    unsigned threads;
    std::ostream* progress;
};

// Tells how far it is, if that is wanted.
Tally PlayOn(const PlayOuts& games, std::uint64_t count, const Effort& effort) {
    Tally tally;
    while (tally.count < count) {
        const std::uint64_t share = effort.progress ? count / stepsOfProgress + 1 : count;
        tally += games.Play(tally.count, std::min(tally.count + share, count), effort.threads);
        if (effort.progress)
            *effort.progress << '\r' << 100 * tally.count / count << " % of the games" << std::flush;
    }
    if (effort.progress) *effort.progress << '\n';
    return tally;
}

/// One line: a word and what it is about, then numbers, the estimated ones with four decimals.
class Line {
public:
    Line(std::ostream& out, const char* word) : out_(out) { out_ << word; }
    ~Line() { out_ << '\n'; }
    Line(const Line&) = delete;
    Line& operator=(const Line&) = delete;

    Line& operator<<(std::integral auto number) {
        out_ << ' ' << number;
        return *this;
    }
    // Without the sign of a number that is printed as 0.
    Line& operator<<(double number) {
        out_ << ' ' << (std::abs(number) < 0.00005 ? 0.0 : number);
        return *this;
    }
    Line& operator<<(const Estimate& estimate) { return *this << estimate.value << estimate.error; }

private:
    std::ostream& out_;
};

void PrintRecords(std::ostream& out, const GameState& game, const GameAnalysis& analysis,
                  const Tally& tally) {
    for (std::size_t number = 1; number <= analysis.Records(); ++number) {
        const MoveRecord& record = game.MoveRecords[number];
        const engine::RecordWorth worth = analysis.OfRecord(number, tally);
        Line line(out, "record");
        line << number << record.MoverColour << record.Die;
        for (const Estimate& chance : worth.chances) line << chance.value;
        line << worth.luck.value << worth.choice.value << worth.cost.value;
    }
}

void PrintSums(std::ostream& out, Colour colour, const engine::SeatWorth& worth) {
    Line(out, "luck") << colour << worth.own.luck;
    Line(out, "choice") << colour << worth.own.choice;
    Line(out, "cost") << colour << worth.own.cost;
    Line(out, "sum") << colour << worth.start.value << worth.luck.value << worth.choice.value
                     << worth.shift.value << worth.end.value;
}

// Some records need no moment of their own and some more than one: the games are spread evenly over
// all moments.
void AnalyseGame(const GameInFile& game, const Effort& effort, std::ostream& out) {
    const Settings& settings = game.content.settings;
    const GameAnalysis analysis(game.position, settings, effort.seed);
    const std::uint64_t games = effort.playOuts * analysis.Records();
    const std::uint64_t count = std::max<std::uint64_t>(1, games / analysis.Games().Moments());
    const Tally tally = PlayOn(analysis.Games(), count, effort);
    PrintRecords(out, game.position, analysis, tally);
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        if (!IsTakingPart(settings, colour)) continue;
        PrintSums(out, colour, analysis.OfSeat(engine::SeatOf(colour), tally));
    }
}

void AnalysePosition(const GameInFile& game, const Effort& effort, std::ostream& out) {
    const Settings& settings = game.content.settings;
    const engine::Moment start = game.Start(engine::GameRules(settings));
    const PositionAnalysis analysis(start, settings, effort.seed);
    const Tally tally = PlayOn(analysis.Games(), effort.playOuts, effort);
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        if (!IsTakingPart(settings, colour)) continue;
        Line(out, "win") << colour << analysis.ChanceOf(engine::SeatOf(colour), tally);
    }
    for (std::size_t number = 0; number < analysis.Moves().size(); ++number) {
        const engine::MoveChoice& move = analysis.Moves()[number];
        const unsigned from = start.position.SideOf(start.seat).StepOf(move.piece);
        Line(out, "move") << move.piece + 1 << engine::SquareAt(start.seat, from)
                          << engine::SquareAt(start.seat, move.to)
                          << analysis.ChanceAfter(number, tally);
    }
}

}  // namespace

void AnalyseCommand(const std::vector<std::string>& arguments, std::ostream& out,
                    std::ostream* progress) {
    const CommandLine options(arguments, {"--settings", "--die", "--playouts", "--seed", "--threads"},
                              {"--game"});
    const Effort effort{options.Has("--playouts") ? options.Number("--playouts", 1, mostPlayOuts) : 2000,
                        options.Has("--seed") ? options.Number("--seed", 0, UINT64_MAX) : 1,
                        ThreadsOf(options), progress};
    const GameInFile game = ReadGame(options.Text("--settings"), options);
    out << std::fixed << std::setprecision(4);
    if (options.Has("--game")) AnalyseGame(game, effort, out);
    AnalysePosition(game, effort, out);
}

}  // namespace zorva
