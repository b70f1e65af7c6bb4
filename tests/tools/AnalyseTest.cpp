#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <sstream>

#include "store/SettingsFile.h"
#include "tests/support/Files.h"
#include "tests/support/RandomGame.h"
#include "tools/Sim.h"

namespace zorva::test {
namespace {

/// What a command prints; empty, after a line on `err`, when it fails.
std::string Printed(const std::string& command) {
    std::istringstream words(command);
    std::ostringstream out, err;
    RunSim({std::istream_iterator<std::string>(words), {}}, out, err, false);
    EXPECT_TRUE(err.str().empty() || err.str().find("bonus move is due") != std::string::npos ||
                err.str().find("is won") != std::string::npos)
        << err.str();
    return out.str();
}

/// The numbers of the lines that begin with a word, by the first number.
PerColour<std::vector<double>> Numbers(const std::string& text, const std::string& word) {
    PerColour<std::vector<double>> found;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string first;
        std::size_t colour = 0;
        if (!(words >> first >> colour) || first != word) continue;
        found[colour] = {std::istream_iterator<double>(words), {}};
    }
    return found;
}

double TotalOf(const PerColour<std::vector<double>>& numbers) {
    double total = 0;
    for (const auto& ofColour : numbers) total += ofColour.empty() ? 0 : ofColour[0];
    return total;
}

/// Files with games in progress and won, of all rules and players. Every other file is odd: a hand has
/// given the turn, the players or the rules other values.
class GameFiles {
public:
    explicit GameFiles(std::uint64_t number) : game_(16, number, 600), odd_(10, number) {
        game_.atPosition = [this](const GameState& position) {
            if (position.MoveRecordCount >= 2 && odd_.Below(40) == 0) kept_.push_back(position);
        };
        game_.Play();
    }

    /// The bytes of one that is read; nothing if there is none.
    std::string Next(bool odd) {
        while (!kept_.empty()) {
            std::swap(kept_.back(), kept_[odd_.Below(static_cast<std::uint32_t>(kept_.size()))]);
            GameState state = std::move(kept_.back());
            kept_.pop_back();
            Settings settings = game_.kind.settings;
            if (odd) Change(state, settings);
            std::string bytes = SettingsText(settings, state);
            if (odd && odd_.Below(3) == 0) PassTurn(bytes, state);
            const auto reading = ReadSettings(bytes);
            const auto* content = std::get_if<SettingsContent>(&reading);
            if (content && content->state.GameInProgress) return bytes;
        }
        return {};
    }

private:
    Short Either() { return static_cast<Short>(1 + odd_.Below(2)); }

    void Change(GameState& state, Settings& settings) {
        // The pieces of a colour that is switched off stand in the way of all others.
        settings.PlayerActive[1 + odd_.Below(ColourCount)] = Either();
        for (Short& type : settings.PlayerType) type = Either();
        for (Short* rule : {&settings.PlayOrder, &settings.RuleSixAllOut, &settings.RuleLeaveAllInBox,
                            &settings.RuleFiveAllInBox, &settings.RuleFiveSomeInBox}) {
            *rule = Either();
        }
        if (odd_.Below(3) == 0) state.CurrentColour = static_cast<Colour>(1 + odd_.Below(ColourCount));
        if (odd_.Below(3) == 0) state.SixesInRow = 0;
    }

    // The field RepeatTurn, which the game always writes as -1.
    static void PassTurn(std::string& bytes, const GameState& state) {
        const std::string turn = "\r\n-1," + std::to_string(state.MoveRecordCount) + ',' +
                                 std::to_string(state.CurrentColour) + ",-1,";
        const std::size_t at = bytes.find(turn);
        if (at != std::string::npos) bytes.replace(at + turn.size() - 3, 2, "0");
    }

    RandomGame game_;
    Chance odd_;
    std::vector<GameState> kept_;
};

/// The chi-square of wins in two series of as many games each, and its degrees of freedom.
struct Deviation {
    double chiSquare = 0, degrees = -1;

    void Add(double wins, double others) {
        if (wins + others == 0) return;
        chiSquare += (wins - others) * (wins - others) / (wins + others);
        ++degrees;
    }
};

/// Files to look at, and games from each; the variables ask for more of them, and for games of the book.
/// With 0 games of each the files are analysed and nothing is compared.
int Wanted(const char* variable, int usual) {
    const char* wanted = std::getenv(variable);
    return wanted ? std::atoi(wanted) : usual;
}

TEST(AnalyseCommand, TellsTheChancesOfGamesThatEngineAndBookPlayOnAlike) {
    const int files = Wanted("ZORVA_GAME_FILES", 40), games = Wanted("ZORVA_GAMES_OF_EACH", 60);
    const char* how = std::getenv("ZORVA_GAMES_OF_EACH") ? " --by-the-book" : "";
    const TemporaryFolder folder;
    const std::string file = (folder / "GAME.INI").string();
    Deviation all{0, 0};
    int looked = 0;
    for (std::uint64_t number = 0; looked < files; ++number) {
        const std::string bytes = GameFiles(number).Next(number % 2 == 1);
        if (bytes.empty()) continue;
        SCOPED_TRACE("game " + std::to_string(number));
        WriteBytes(file, bytes);
        const std::string die = ++looked % 3 == 0 ? " --die " + std::to_string(1 + looked % 6) : "";
        const auto text = Printed("analyse --threads 2 --settings " + file + die + " --playouts " +
                                  std::to_string(std::max(games, 4)));
        const auto chances = Numbers(text, "win");
        for (const auto& chance : chances)
            ASSERT_TRUE(chance.empty() || (chance[0] >= 0 && chance[0] <= 1));
        if (games == 0) continue;
        const std::string match = "match --threads 2 --from " + file + die + " --games ";
        const auto two = Printed(match + "2");
        ASSERT_EQ(Printed(match + "2 --by-the-book"), two);
        // Games that nobody can win are too long for the book.
        const bool isEndless = !two.empty() && TotalOf(Numbers(two, "wins")) < 2;
        const auto played = match + std::to_string(games) + (isEndless ? "" : how);
        const auto wins = Numbers(Printed(played), "wins");
        Deviation deviation;
        for (Colour colour = 1; colour <= ColourCount; ++colour) {
            ASSERT_EQ(chances[colour].empty(), wins[colour].empty());
            if (chances[colour].empty()) continue;
            deviation.Add(std::round(chances[colour][0] * games), wins[colour][0]);
        }
        EXPECT_LT(deviation.chiSquare, 19.2);  // fewer than one in 4,000 reach this by chance
        all.chiSquare += deviation.chiSquare;
        all.degrees += std::max(deviation.degrees, 0.0);
        if (looked % 4 != 0) continue;
        const std::string game = Printed("analyse --threads 1 --playouts 1 --game --settings " + file);
        EXPECT_NE(game.find("\nsum "), std::string::npos);
    }
    std::cout << "chi-square " << all.chiSquare << ", " << all.degrees << " degrees of freedom\n";
    EXPECT_LE(all.chiSquare, all.degrees + 4 * std::sqrt(2 * all.degrees));
}

// A change here means that the rules, the computer player or the dice of play-outs changed.
TEST(AnalyseCommand, PrintsTheSameNumbersOnAnyNumberOfThreadsAndMachine) {
    EXPECT_EQ(Printed("match --from " ZORVA_TEST_DATA "/games/game36/expected.INI --games 400"),
              "wins 1 68\nwins 2 39\nwins 3 131\nwins 4 162\n");
    for (const char* threads : {"1", "3"}) {
        const std::string text = Printed("analyse --settings " ZORVA_TEST_DATA
                                         "/games/game36/expected.INI --playouts 200 --game --die 6 "
                                         "--threads " +
                                         std::string(threads));
        EXPECT_NE(text.find("record 5 4 5 0.1111 0.1333 0.3444 0.4111 0.0611 0.0000 0.0000\n"),
                  std::string::npos);
        EXPECT_EQ(text.substr(text.find("luck 4")),
                  "luck 4 0.1000 0.0636\nchoice 4 0.0000 0.0000\ncost 4 0.0000 0.0000\n"
                  "sum 4 0.3278 0.1333 0.0000 0.0000 0.4611\n"
                  "win 1 0.1400 0.0250\nwin 2 0.1050 0.0222\nwin 3 0.3400 0.0339\n"
                  "win 4 0.4150 0.0352\nmove 4 62 68 0.4150 0.0352\n");
    }
}

TEST(AnalyseCommand, KnowsWhoHasWonAGameThatPlayHasKept) {
    const TemporaryFolder folder;
    const std::string file = (folder / "WON.INI").string(), game = ZORVA_TEST_DATA "/games/game04/";
    Printed("play --settings " + game + "in.INI --first 1 --dice " + game +
            "dice.txt --keep-won --save " + file);
    EXPECT_EQ(Printed("analyse --playouts 5 --settings " + file),
              "win 1 1.0000 0.0000\nwin 2 0.0000 0.0000\nwin 3 0.0000 0.0000\nwin 4 0.0000 0.0000\n");
}

}  // namespace
}  // namespace zorva::test
