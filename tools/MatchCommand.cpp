#include "tools/MatchCommand.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <iomanip>
#include <map>
#include <ostream>

#include "tools/CommandLine.h"
#include "tools/Failure.h"
#include "tools/Match.h"
#include "tools/SettingsArgument.h"

namespace zorva {
namespace {

constexpr std::uint64_t mostGames = 1'000'000'000;

// "A,B,C,D": four whole numbers, none above the highest nor below the lowest.
std::array<Short, 4> FourNumbers(const CommandLine& options, const std::string& option, Short low,
                                 Short high, const char* told) {
    const std::string& text = options.Text(option);
    std::array<Short, 4> numbers{};
    std::size_t begin = 0;
    for (std::size_t place = 0; place < numbers.size(); ++place) {
        const bool last = place + 1 == numbers.size();
        const std::size_t end = last ? text.size() : text.find(',', begin);
        const auto number = end == std::string::npos
                                ? std::nullopt
                                : WholeNumber(std::string_view(text).substr(begin, end - begin));
        if (!number || *number < static_cast<std::uint64_t>(low) ||
            *number > static_cast<std::uint64_t>(high)) {
            throw Failure(option + " takes " + told + std::string(", not \"").append(text).append("\""));
        }
        numbers[place] = static_cast<Short>(*number);
        begin = end + 1;
    }
    return numbers;
}

void TakeLevels(const CommandLine& options, Settings& settings) {
    const auto levels =
        FourNumbers(options, "--levels", 0, 100, "four levels from 0 to 100 such as 50,50,80,100");
    std::copy(levels.begin(), levels.end(), settings.PlayerLevel.begin() + 1);
}

void TakePlayers(const CommandLine& options, Settings& settings) {
    const auto active = FourNumbers(options, "--players", 1, 2,
                                    "a 1 (takes part) or a 2 for each colour such as 1,2,1,2");
    std::copy(active.begin(), active.end(), settings.PlayerActive.begin() + 1);
}

void TakeRules(const CommandLine& options, Settings& settings) {
    const auto rules =
        FourNumbers(options, "--rules", 1, 2, "four options of the rules, each 1 or 2, such as 2,1,1,1");
    settings.RuleSixAllOut = rules[0];
    settings.RuleLeaveAllInBox = rules[1];
    settings.RuleFiveAllInBox = rules[2];
    settings.RuleFiveSomeInBox = rules[3];
}

// "C,N": the colour and its play-outs for each move.
void TakeThinker(const CommandLine& options, MatchPlan& plan) {
    const std::string& text = options.Text("--thinker");
    const auto comma = std::min(text.find(','), text.size());
    const auto colour = WholeNumber(std::string_view(text).substr(0, comma));
    const auto playOuts = WholeNumber(std::string_view(text).substr(std::min(comma + 1, text.size())));
    if (!colour || *colour < 1 || *colour > ColourCount || !playOuts || *playOuts == 0) {
        throw Failure("--thinker takes a colour and a number of play-outs such as 1,200, not \"" + text +
                      "\"");
    }
    if (plan.byTheBook) throw Failure("--thinker excludes --by-the-book");
    plan.thinker = static_cast<Colour>(*colour);
    plan.playOuts = *playOuts;
}

// The game to be played on has its own settings.
void TakeStart(const CommandLine& options, MatchPlan& plan) {
    for (const char* other : {"--settings", "--levels", "--players", "--rules", "--order"}) {
        if (options.Has(other)) throw Failure(std::string("--from excludes ") + other);
    }
    plan.start = ReadGame(options.Text("--from"), options);
    plan.settings = engine::WithLevelsOfPersons(plan.start->content.settings);
}

MatchPlan ReadPlan(const CommandLine& options) {
    MatchPlan plan;
    plan.games = options.Number("--games", 1, mostGames);
    const bool hasUsualSeed = options.Has("--from") && !options.Has("--seed");
    plan.seed = hasUsualSeed ? 1 : options.Number("--seed", 0, UINT64_MAX);
    plan.threads = ThreadsOf(options);
    plan.byTheBook = options.Has("--by-the-book");
    if (options.Has("--thinker")) TakeThinker(options, plan);
    if (options.Has("--from")) {
        TakeStart(options, plan);
        return plan;
    }
    if (options.Has("--die")) throw Failure("--die needs --from");
    if (options.Has("--settings"))
        plan.settings = ReadSettingsArgument(options.Text("--settings")).settings;
    if (options.Has("--levels")) TakeLevels(options, plan.settings);
    if (options.Has("--players")) TakePlayers(options, plan.settings);
    if (options.Has("--rules")) TakeRules(options, plan.settings);
    if (options.Has("--order"))
        plan.settings.PlayOrder = static_cast<Short>(options.Number("--order", 1, 2));
    return plan;
}

double Ratio(double part, double whole) {
    return whole > 0 ? part / whole : 0;
}

void PrintRow(std::ostream& out, const std::string& name, const ColourTotals& totals,
              std::uint64_t games) {
    const double wins = static_cast<double>(totals.wins);
    out << std::left << std::setw(19) << name << std::right << std::setw(11) << totals.wins
        << std::setprecision(2) << std::setw(8) << Ratio(100 * wins, static_cast<double>(games)) << " %"
        << std::setw(12) << Ratio(static_cast<double>(totals.points), 100 * wins) << '\n';
}

void PrintTotals(std::ostream& out, const MatchPlan& plan, const MatchTotals& totals) {
    static constexpr const char* names[] = {"", "yellow", "blue", "red", "green"};
    const double games = static_cast<double>(totals.games);
    std::map<Short, ColourTotals> byLevel;
    std::size_t colours = 0;
    out << std::fixed << "                          wins  of all games  points per win\n";
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        if (!IsTakingPart(plan.settings, colour)) continue;
        const Short level = plan.settings.PlayerLevel[colour];
        const std::string name = std::string(names[colour]) + ", level " + std::to_string(level);
        PrintRow(out, name, totals.colours[colour], totals.games);
        ++colours;
        byLevel[level].wins += totals.colours[colour].wins;
        byLevel[level].points += totals.colours[colour].points;
    }
    for (const auto& [level, sum] : byLevel) {
        if (byLevel.size() < colours && byLevel.size() > 1)
            PrintRow(out, "all of level " + std::to_string(level), sum, totals.games);
    }
    out << "wins by turn, from the colour that begins:";
    for (std::size_t turn = 0; turn < colours; ++turn) {
        out << ' ' << std::setprecision(2)
            << Ratio(100 * static_cast<double>(totals.winsByTurn[turn]), games) << " %";
    }
    out << "\nmean moves per game " << Ratio(static_cast<double>(totals.moves), games)
        << ", mean captures per game " << Ratio(static_cast<double>(totals.captures), games) << '\n';
}

void PrintWins(std::ostream& out, const MatchPlan& plan, const MatchTotals& totals) {
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        if (!IsTakingPart(plan.settings, colour)) continue;
        out << "wins " << colour << ' ' << totals.colours[colour].wins << '\n';
    }
}

void PrintSpeed(std::ostream& out, const MatchPlan& plan, const MatchTotals& totals, double seconds) {
    out << std::setprecision(0) << Ratio(static_cast<double>(totals.games), seconds) << " games/s, "
        << Ratio(static_cast<double>(totals.decisions), seconds) << " decisions/s, "
        << std::setprecision(2) << seconds << " s with " << plan.threads
        << (plan.threads == 1 ? " thread\n" : " threads\n");
}

}  // namespace

void MatchCommand(const std::vector<std::string>& arguments, std::ostream& out, std::ostream* progress) {
    const CommandLine options(arguments,
                              {"--games", "--seed", "--threads", "--settings", "--levels", "--players",
                               "--rules", "--order", "--from", "--die", "--thinker"},
                              {"--by-the-book"});
    const MatchPlan plan = ReadPlan(options);
    const auto tell = [&](std::uint64_t finished) {
        *progress << '\r' << finished << " of " << plan.games << " games" << std::flush;
        if (finished == plan.games) *progress << '\n';
    };
    const auto start = std::chrono::steady_clock::now();
    const MatchTotals totals = PlayMatch(plan, progress ? tell : std::function<void(std::uint64_t)>());
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    if (plan.start) return PrintWins(out, plan, totals);
    PrintTotals(out, plan, totals);
    PrintSpeed(out, plan, totals, taken.count());
}

}  // namespace zorva
