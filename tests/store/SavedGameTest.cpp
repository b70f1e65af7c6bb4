#include "store/SavedGame.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/Consistency.h"
#include "core/Execution.h"
#include "core/Records.h"
#include "store/SettingsFile.h"
#include "tests/store/PlayedGame.h"
#include "tests/support/Files.h"

namespace zorva::test {
namespace {

const auto noAction = [](PlayedGame&) {};

std::string TextOf(const PlayedGame& game) {
    return SettingsText(game.settings, game.state);
}

class NoThrows : public SilentOutside {
    Short RollFace() override { StopOnFault("nothing is thrown here"); }
};

// All moves taken back, last first.
GameState TakenBack(GameState state) {
    const Settings settings;
    NoThrows silent;
    while (--state.MoveRecordCount >= 1) ExecuteMove({state, settings, silent}, ExecutionMode::Backward);
    return state;
}

bool IsAtTheStart(const GameState& state) {
    return state.PiecesInBox == GameState{}.PiecesInBox && state.PiecesHome == GameState{}.PiecesHome &&
           state.PiecePosition == GameState{}.PiecePosition;
}

// What the file keeps of a game, in one comparison; records never made count as empty.
bool IsSameGame(GameState one, GameState other) {
    const std::size_t room = std::max(one.MoveRecords.size(), other.MoveRecords.size());
    one.MoveRecords.resize(room);
    other.MoveRecords.resize(room);
    return one.MoveRecords == other.MoveRecords && one.PiecePosition == other.PiecePosition &&
           one.SquareOccupants == other.SquareOccupants && one.PiecesInBox == other.PiecesInBox &&
           one.PiecesHome == other.PiecesHome && one.GameInProgress == other.GameInProgress &&
           one.MoveRecordCount == other.MoveRecordCount && one.CurrentColour == other.CurrentColour &&
           one.SixesInRow == other.SixesInRow;
}

// What is wrong with keeping the game at this position, or nothing.
std::string KeepingProblem(const PlayedGame& game) {
    const std::string text = TextOf(game);
    const SettingsReading reading = ReadSettings(text);
    if (const auto* error = std::get_if<FileError>(&reading)) {
        return "refused with " + std::to_string(static_cast<int>(*error));
    }
    const auto& loaded = std::get<SettingsContent>(reading);
    if (loaded.settings != game.settings) return "other settings";
    if (SettingsText(loaded.settings, loaded.state) != text) return "written again it differs";
    if (game.state.MoveRecordCount < 2) return loaded.state.GameInProgress ? "a game without moves" : "";
    if (!IsSameGame(loaded.state, game.state)) return "another game";
    if (!IsAtTheStart(TakenBack(loaded.state))) return "cannot be taken back";
    return {};
}

TEST(SavedGame, ComesBackFromEveryPosition) {
    std::size_t positions = 0;
    for (std::uint64_t seed = 1; seed <= 12; ++seed) {
        PlayedGame game = PlayedGame::Of(seed);
        std::string problem;
        PlayWhole(game, [&](PlayedGame& at) {
            ++positions;
            if (problem.empty()) problem = KeepingProblem(at);
            if (!problem.empty()) at.state.GameInProgress = No;
        });
        ASSERT_EQ(problem, "") << "game " << seed << "\n" << TextOf(game);
        ASSERT_EQ(KeepingProblem(game), "") << "after game " << seed;
    }
    EXPECT_GT(positions, 12u * 100);
}

TEST(SavedGame, GoesOnAsIfItHadNeverBeenLeft) {
    std::size_t bonusDue = 0;
    for (std::uint64_t seed = 100; seed < 700; ++seed) {
        PlayedGame game = PlayedGame::Of(seed);
        PlayedGame left;
        std::string text;
        Short position = 0;
        const auto chosen = static_cast<Short>(2 + Chance(seed, 1).Below(150));
        const bool wantsBonus = seed % 2 == 0;
        PlayWhole(game, [&](PlayedGame& at) {
            if (++position < chosen || !text.empty() || at.state.MoveRecordCount < 2) return;
            if (wantsBonus && at.state.ThrowNext) return;
            text = TextOf(at);
            left = at;
        });
        if (text.empty()) continue;  // the game was shorter
        const SettingsReading reading = ReadSettings(text);
        ASSERT_TRUE(std::holds_alternative<SettingsContent>(reading)) << "game " << seed;
        left.state = std::get<SettingsContent>(reading).state;
        PrepareToContinue(left.state);
        if (!left.state.ThrowNext) ++bonusDue;
        PlayOn(left, noAction);
        ASSERT_TRUE(IsSameGame(left.state, game.state)) << "game " << seed << " left at\n" << text;
    }
    EXPECT_GT(bonusDue, 150u);
}

// The game to which the records lead, with that colour on turn.
std::string TextAfter(const std::vector<MoveRecord>& records, Colour onTurn) {
    const Settings settings;
    GameState state;
    NoThrows silent;
    state.GameInProgress = Yes;
    state.CurrentColour = onTurn;
    for (const MoveRecord& record : records) {
        NewMoveRecord(state);
        state.MoveRecords[state.MoveRecordCount] = record;
        ExecuteMove({state, settings, silent}, ExecutionMode::Forward);
    }
    NewMoveRecord(state);
    return SettingsText(settings, state);
}

bool IsRefused(const std::string& text) {
    return std::holds_alternative<FileError>(ReadSettings(text));
}

TEST(SavedGame, IsNeverInTheMiddleOfACapture) {
    std::vector<MoveRecord> records{
        {1, 0, 0, 0, 1, 0, 44, 0, Yes, 0, Yes},
        {3, 1, 0, 0, 1, 0, 45, 0, Yes, 0, Yes},
        {1, 0, 1, 1, 1, 44, 45, 0, No, 0, Yes},
    };
    EXPECT_TRUE(IsRefused(TextAfter(records, 1)));
    records.push_back({3, 1, 0, 0, 1, 45, 0, 0, No, 1, No});
    EXPECT_FALSE(IsRefused(TextAfter(records, 1)));
    EXPECT_TRUE(IsRefused(TextAfter(records, 2))) << "the bonus is due to another colour";
}

TEST(SavedGame, IsNeverOneThatIsWon) {
    std::vector<MoveRecord> records{{1, 0, 0, 0, 4, 0, 75, 0, Yes, 0, Yes}};
    for (const Short piece : {Short{1}, Short{2}, Short{3}}) {
        records.push_back({1, 0, 0, 0, piece, 0, 76, 0, Yes, 0, Yes});
    }
    EXPECT_FALSE(IsRefused(TextAfter(records, 1)));
    records.push_back({1, 0, 1, 1, 4, 75, 76, 0, No, 0, Yes});
    EXPECT_TRUE(IsRefused(TextAfter(records, 1)));
}

TEST(SavedGame, EveryFileOfAWholeGameIsReadAndWrittenAgain) {
    int files = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(
             std::filesystem::path(ZORVA_TEST_DATA) / "games")) {
        if (entry.path().extension() != ".INI") continue;
        ++files;
        const std::string bytes = FileBytes(entry.path());
        const SettingsReading reading = ReadSettings(bytes);
        ASSERT_TRUE(std::holds_alternative<SettingsContent>(reading)) << entry.path();
        const auto& content = std::get<SettingsContent>(reading);
        // Names left blank come back as those of the colours.
        const bool hasBlankName =
            bytes.find("\"\"") != std::string::npos || bytes.find("\"   \"") != std::string::npos;
        EXPECT_EQ(SettingsText(content.settings, content.state) == bytes, !hasBlankName) << entry.path();
    }
    EXPECT_EQ(files, 96);
}

// -------------------------------------------------------------------------- a thousand damages

std::size_t LineBegin(const std::string& text, std::size_t at) {
    const std::size_t before = at == 0 ? std::string::npos : text.rfind('\n', at - 1);
    return before == std::string::npos ? 0 : before + 1;
}

std::size_t LineEnd(const std::string& text, std::size_t at) {
    const std::size_t end = text.find('\n', at);
    return end == std::string::npos ? text.size() : end + 1;
}

std::string Damaged(std::string text, Chance& chance) {
    if (text.empty()) return text;
    const std::size_t at = chance.Below(static_cast<std::uint32_t>(text.size()));
    const std::size_t some = 1 + chance.Below(12);
    const std::size_t begin = LineBegin(text, at), end = LineEnd(text, at);
    switch (chance.Below(9)) {
        case 0: text[at] = static_cast<char>(chance.Below(256)); break;
        case 1: text[at] = static_cast<char>('0' + chance.Below(10)); break;
        case 2: text[at] = static_cast<char>(text[at] ^ (1 << chance.Below(8))); break;
        case 3: text.resize(at); break;
        case 4: text.erase(at, some); break;
        case 5: text.insert(at, text.substr(at, some)); break;
        case 6: text.erase(begin, end - begin); break;
        case 7: text.insert(begin, text.substr(begin, end - begin)); break;
        default: text.insert(at, std::to_string(chance.Next())); break;
    }
    return text;
}

// A game that was accepted must be playable, on to its end and back to its start.
void ExpectPlayable(const SettingsContent& content, const PlayedGame& origin) {
    EXPECT_EQ(StateProblem(content.state), "");
    const SettingsReading again = ReadSettings(SettingsText(content.settings, content.state));
    ASSERT_TRUE(std::holds_alternative<SettingsContent>(again));
    if (!content.state.GameInProgress) return;
    EXPECT_TRUE(IsAtTheStart(TakenBack(content.state)));
    PlayedGame game = origin;
    game.settings = content.settings;
    game.state = content.state;
    PrepareToContinue(game.state);
    PlayOn(game, noAction);
    EXPECT_FALSE(game.state.GameInProgress);
}

TEST(SavedGame, ARandomDamageIsRefusedOrHarmless) {
    Chance chance(77);
    int refused = 0, accepted = 0;
    for (std::uint64_t seed = 1000; seed < 1040; ++seed) {
        PlayedGame game = PlayedGame::Of(seed);
        std::vector<std::string> texts{SettingsText(game.settings, game.state)};
        PlayWhole(game, [&](PlayedGame& at) {
            if (at.chance.Below(60) == 0 && texts.size() < 4) texts.push_back(TextOf(at));
        });
        texts.push_back(TextOf(game));
        for (int repeat = 0; repeat < 250; ++repeat) {
            std::string text = texts[chance.Below(static_cast<std::uint32_t>(texts.size()))];
            for (std::uint32_t times = 1 + chance.Below(2); times > 0; --times) {
                text = Damaged(text, chance);
            }
            const SettingsReading reading = ReadSettings(text);
            if (std::holds_alternative<FileError>(reading)) {
                ++refused;
                EXPECT_NE(std::get<FileError>(reading), FileError::None);
            } else {
                ++accepted;
                ExpectPlayable(std::get<SettingsContent>(reading), game);
            }
        }
    }
    RecordProperty("refused", refused);
    RecordProperty("accepted", accepted);
    EXPECT_GT(refused, 5000);
    EXPECT_GT(accepted, 50);
}

}  // namespace
}  // namespace zorva::test
