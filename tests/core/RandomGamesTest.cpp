#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "core/Board.h"
#include "core/Consistency.h"
#include "core/Execution.h"
#include "core/Rules.h"
#include "store/SettingsFile.h"
#include "tests/support/RandomGame.h"

namespace zorva::test {
namespace {

// The games are played in shares, side by side. ZORVA_RANDOM_GAMES asks for more than 20,000.
constexpr std::uint64_t shares = 4;

std::uint64_t GamesOfAShare() {
    const char* wanted = std::getenv("ZORVA_RANDOM_GAMES");
    return (wanted == nullptr ? 20'000 : std::strtoull(wanted, nullptr, 10)) / shares;
}

/// The tables that moves change, as bytes: millions of them are compared.
struct Tables {
    std::array<char, sizeof(GameState::PiecePosition)> positions;
    std::array<char, sizeof(GameState::SquareOccupants)> occupants;
    std::array<char, sizeof(GameState::PiecesInBox)> inBox;
    std::array<char, sizeof(GameState::PiecesHome)> home;

    explicit Tables(const GameState& state) {
        std::memcpy(positions.data(), &state.PiecePosition, sizeof positions);
        std::memcpy(occupants.data(), &state.SquareOccupants, sizeof occupants);
        std::memcpy(inBox.data(), &state.PiecesInBox, sizeof inBox);
        std::memcpy(home.data(), &state.PiecesHome, sizeof home);
    }
    bool operator==(const Tables&) const = default;
};

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

/// One random game under the eyes of the test.
class WatchedGame {
public:
    /// `room` is used for the positions of the game.
    WatchedGame(std::uint64_t number, std::vector<Tables>& room)
        : chance_(1, number), choice_(2, number), kind_(RandomGameKind::Of(chance_)), before_(room) {
        before_.clear();
    }

    /// Plays it forwards, back and forwards again, and once more from a file of its middle. What was
    /// wrong first, or nothing.
    std::string Play() {
        const Short count = PlayRandomGame(
            state_, kind_, chance_,
            [this](const GameState& state, const MoveRecord& record) { Look(state, record); },
            [this](const GameState& state, const Chance& chance) { MayKeep(state, chance); });
        if (problem_.empty()) problem_ = KeepingProblem();
        before_.emplace_back(state_);
        if (problem_.empty()) problem_ = StateProblem(state_);
        for (Short move = count; move >= 1; --move) Redo(move, ExecutionMode::Backward, move - 1);
        for (Short move = 1; move <= count; ++move) Redo(move, ExecutionMode::Forward, move);
        return problem_;
    }

    std::size_t Records() const { return before_.size() - 1; }

private:
    void Look(const GameState& state, const MoveRecord& record) {
        before_.emplace_back(state);
        if (!problem_.empty()) return;
        // In between a capture and the victim's way home three pieces may stand on a square.
        if (state.CaptureReport == 0) problem_ = StateProblem(state);
        if (problem_.empty()) problem_ = RecordProblem(state, kind_.settings, record);
        if (!problem_.empty()) problem_ += " at move " + std::to_string(before_.size());
    }

    // Any position is as likely to be kept as the others.
    void MayKeep(const GameState& state, const Chance& chance) {
        if (state.MoveRecordCount < 2 || choice_.Below(++keepable_) != 0) return;
        kept_ = state;
        chanceThere_ = chance;
    }

    std::string KeepingProblem() {
        if (keepable_ == 0) return {};
        const std::string text = SettingsText(kind_.settings, kept_);
        SettingsReading reading = ReadSettings(text);
        auto* loaded = std::get_if<SettingsContent>(&reading);
        const std::string where = " what was kept at move " + std::to_string(kept_.MoveRecordCount);
        if (loaded == nullptr) return "cannot be read:" + where;
        if (loaded->settings != kind_.settings) return "has other settings:" + where;
        if (SettingsText(loaded->settings, loaded->state) != text)
            return "is written otherwise:" + where;
        ContinueRandomGame(loaded->state, kind_, chanceThere_);
        return EndsAsHere(loaded->state) ? "" : "ends otherwise:" + where;
    }

    bool EndsAsHere(const GameState& other) const {
        const auto first = state_.MoveRecords.begin() + 1;
        return Tables(other) == Tables(state_) && other.CurrentColour == state_.CurrentColour &&
               other.MoveRecordCount == state_.MoveRecordCount &&
               std::equal(first, first + state_.MoveRecordCount, other.MoveRecords.begin() + 1);
    }

    void Redo(Short move, ExecutionMode mode, Short position) {
        SilentOutside silent;
        ExecuteMove({state_, kind_.settings, silent}, mode, move);
        if (!problem_.empty() || Tables(state_) == before_[position]) return;
        problem_ = (mode == ExecutionMode::Backward ? "taking back move " : "repeating move ") +
                   std::to_string(move) + " leads to another position";
    }

    Chance chance_;
    Chance choice_;
    RandomGameKind kind_;
    GameState state_;
    GameState kept_;
    Chance chanceThere_{0};
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
