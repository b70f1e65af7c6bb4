#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "core/Board.h"
#include "core/Consistency.h"
#include "core/Execution.h"
#include "core/GameStart.h"
#include "core/Rules.h"
#include "store/SettingsFile.h"
#include "tests/support/Positions.h"
#include "tests/support/RandomGame.h"

namespace zorva::test {
namespace {

// The games are played in shares, side by side. ZORVA_RANDOM_GAMES asks for more than 20,000.
constexpr std::uint64_t shares = 4;

std::uint64_t GamesOfAShare() {
    const char* wanted = std::getenv("ZORVA_RANDOM_GAMES");
    return (wanted == nullptr ? 20'000 : std::strtoull(wanted, nullptr, 10)) / shares;
}

// Whether the record breaks the rules in the position it is about to be played in.
std::string RecordProblem(const GameState& state, const Settings& settings, const MoveRecord& record) {
    if (record.Piece == 0) return {};
    const Colour colour = record.MoverColour;
    if (record.From != state.PiecePosition[colour][record.Piece]) return "moves a piece from elsewhere";
    if (record.Manual || record.To == 0) return {};
    const bool opens = record.From == 0 && settings.RuleLeaveAllInBox == 1 &&
                       (state.PiecesInBox[colour] == 4 || state.SecondMovePending == 2);
    if (opens) return {};
    if (!IsMoveLegal(state, colour, record.Count, record.From)) return "is not legal";
    return record.To == DestinationOf(colour, record.Count, record.From) ? "" : "ends elsewhere";
}

using Tables = decltype(TablesOf(GameState{}));

/// One random game under the eyes of the test.
class WatchedGame {
public:
    /// `room` is used for the positions of the game.
    WatchedGame(std::uint64_t number, std::vector<Tables>& room)
        : game_(1, number), choice_(2, number), before_(room) {
        before_.clear();
        game_.kind.changesRules = number % 4 == 0;
        game_.beforeRecord = [this](const MoveRecord& record) { Look(record); };
        game_.atPosition = [this](const GameState& position) { MayKeep(position); };
    }

    /// Plays it forwards, back and forwards again, and once more from a file of its middle. What was
    /// wrong first, or nothing.
    std::string Play() {
        game_.Play();
        if (problem_.empty()) problem_ = StateProblem(game_.state);
        before_.push_back(TablesOf(game_.state));
        if (problem_.empty() && kept_) problem_ = KeepingProblem();
        const Short count = game_.logged;
        for (Short move = count; move >= 1; --move) Redo(move, ExecutionMode::Backward, move - 1);
        for (Short move = 1; move <= count; ++move) Redo(move, ExecutionMode::Forward, move);
        return problem_;
    }

    std::size_t Records() const { return before_.size() - 1; }

private:
    void Look(const MoveRecord& record) {
        before_.push_back(TablesOf(game_.state));
        if (!problem_.empty()) return;
        // Between a capture and the return of the captured piece three pieces may stand on a square.
        if (game_.state.CaptureReport == 0) problem_ = StateProblem(game_.state);
        if (problem_.empty()) problem_ = RecordProblem(game_.state, game_.kind.settings, record);
        if (!problem_.empty()) problem_ += " at move " + std::to_string(before_.size());
    }

    // Any position is as likely to be kept as the others.
    void MayKeep(const GameState& position) {
        if (position.MoveRecordCount < 2 || choice_.Below(++keepable_) != 0) return;
        kept_.emplace(game_).state = position;
    }

    std::string KeepingProblem() {
        RandomGame& kept = *kept_;
        const std::string text = SettingsText(kept.kind.settings, kept.state);
        SettingsReading reading = ReadSettings(text);
        auto* loaded = std::get_if<SettingsContent>(&reading);
        const std::string where = " what was kept at move " + std::to_string(kept.state.MoveRecordCount);
        if (loaded == nullptr) return "cannot be read:" + where;
        if (loaded->settings != kept.kind.settings) return "has other settings:" + where;
        if (SettingsText(loaded->settings, loaded->state) != text)
            return "is written otherwise:" + where;
        kept.state = loaded->state;
        ContinueGame(kept.AsGame());
        if (!EndsAsHere(kept.state)) return "ends otherwise:" + where;
        for (Short move = kept.logged; move >= 1; --move) Execute(kept, ExecutionMode::Backward, move);
        // Not the slots: a piece left over on a goal may be the one that comes home again.
        const bool isBack = kept.state.PiecePosition == GameState{}.PiecePosition &&
                            kept.state.PiecesHome == GameState{}.PiecesHome;
        return isBack ? "" : "cannot be taken back:" + where;
    }

    bool EndsAsHere(const GameState& other) const {
        const GameState& here = game_.state;
        const auto first = here.MoveRecords.begin() + 1;
        return TablesOf(other) == TablesOf(here) && other.CurrentColour == here.CurrentColour &&
               other.MoveRecordCount == here.MoveRecordCount &&
               std::equal(first, first + here.MoveRecordCount, other.MoveRecords.begin() + 1);
    }

    static void Execute(RandomGame& game, ExecutionMode mode, Short move) {
        SilentOutside silent;
        ExecuteMove({game.state, game.kind.settings, silent}, mode, move);
    }

    void Redo(Short move, ExecutionMode mode, Short position) {
        Execute(game_, mode, move);
        if (!problem_.empty() || TablesOf(game_.state) == before_[position]) return;
        problem_ = (mode == ExecutionMode::Backward ? "taking back move " : "repeating move ") +
                   std::to_string(move) + " leads to another position";
    }

    RandomGame game_;
    Chance choice_;
    std::optional<RandomGame> kept_;
    std::uint32_t keepable_ = 0;
    std::vector<Tables>& before_;  // one position more than records
    std::string problem_;
};

class RandomGames : public testing::TestWithParam<std::uint64_t> {};

TEST_P(RandomGames, KeepTheTablesSoundAndCanBeTakenBackRepeatedAndKept) {
    std::size_t records = 0;
    std::vector<Tables> room;
    const std::uint64_t games = GamesOfAShare();
    const std::uint64_t first = GetParam() * games;
    for (std::uint64_t number = first; number < first + games; ++number) {
        WatchedGame game(number, room);
        ASSERT_EQ(game.Play(), "") << "in game " << number;
        records += game.Records();
    }
    EXPECT_GT(records, 600 * games);
}

INSTANTIATE_TEST_SUITE_P(Shares, RandomGames, testing::Range<std::uint64_t>(0, shares));

}  // namespace
}  // namespace zorva::test
