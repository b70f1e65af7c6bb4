#include "store/HistoryFile.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

#include "tests/support/Files.h"

namespace zorva::test {
namespace {

const std::string anaWins = "200103050907Ana      Luis     Eva               250\r\n";

TEST(HistoryFile, WritesRecordsToTheByte) {
    std::tm when{};
    when.tm_year = 2001 - 1900;
    when.tm_mon = 3 - 1;
    when.tm_mday = 5;
    when.tm_hour = 9;
    when.tm_min = 7;
    Settings settings;
    settings.PlayerName = {"", "Ana", "Begoña la larga", "Luis", "Íñigo"};
    struct Row {
        GameResult result;
        std::string record;
    };
    const Row rows[] = {
        {{1, {3, 4}, 250}, "200103050907Ana      Luis     \xCD\xF1igo             250\r\n"},
        {{2, {1, 3, 4}, 5},
         "200103050907Bego\xF1"
         "a laAna      Luis     \xCD\xF1igo    005\r\n"},
        {{3, {}, 0}, "200103050907Luis                                000\r\n"},
        {{4, {1}, 999}, "200103050907\xCD\xF1igo    Ana                        999\r\n"},
    };
    for (const Row& row : rows) {
        ASSERT_EQ(row.record.size(), HistoryRecordLength);
        EXPECT_EQ(HistoryRecordText(when, row.result, settings), row.record);
    }
}

TEST(HistoryFile, DecodesRecords) {
    struct Row {
        const char* name;
        std::string record;
        HistoryEntry entry;
    };
    const std::string time = "200103050907";
    const std::string ana = "Ana      ", luis = "Luis     ", eva = "Eva      ", none(9, ' ');
    const auto losers = [&](const std::string& slots) { return time + none + slots + "250\r\n"; };
    const auto entryOf = [](const char* text) {
        return HistoryEntry{"05-03-2001", "09:07", "", "2.50", text};
    };
    const auto points = [&](const char* field) { return time + ana + std::string(27, ' ') + field; };
    const auto worth = [](const char* text) {
        return HistoryEntry{"05-03-2001", "09:07", "Ana", text, ""};
    };
    const HistoryEntry nothing{"", "", "", "0.00", ""};
    const Row rows[] = {
        {"a game", anaWins, {"05-03-2001", "09:07", "Ana", "2.50", "Luis, Eva"}},
        {"three losers", losers(ana + luis + eva), entryOf("Ana, Luis y Eva")},
        {"the first and the third", losers(ana + none + eva), entryOf("Ana y Eva")},
        {"the third alone", losers(none + none + eva), entryOf("Eva")},
        {"accents", losers("\xCD\xF1igo    " + none + none), entryOf("Íñigo")},
        {"points with blanks", points("  5\r\n"), worth("0.05")},
        {"points that are none", points("x9y\r\n"), worth("0.00")},
        {"cut off in a name",
         time + ana + luis + "Ev",
         {"05-03-2001", "09:07", "Ana", "0.00", "Luis, Ev"}},
        {"cut off in the date", "20010", nothing},
        {"blank but for its end", std::string(51, ' ') + "\r\n", nothing},
        {"nothing at all", "", nothing},
    };
    for (const Row& row : rows) EXPECT_EQ(DecodeHistoryRecord(row.record), row.entry) << row.name;
}

TEST(HistoryFile, OnlyGrowsAndMendsATornRecord) {
    for (std::size_t torn = 0; torn <= HistoryRecordLength; ++torn) {
        const TemporaryFolder folder;
        const std::string before = anaWins + anaWins.substr(0, torn);
        WriteBytes(folder / HistoryFileName, before);
        ASSERT_EQ(AppendToHistory(folder / "", anaWins), FileError::None);
        const std::string after = FileBytes(folder / HistoryFileName);
        const std::size_t records = torn == 0 ? 2 : 3;
        EXPECT_EQ(after.size(), records * HistoryRecordLength) << torn;
        EXPECT_EQ(after.substr(0, before.size()), before) << torn;
        EXPECT_EQ(after.substr(after.size() - 55), "\r\n" + anaWins) << torn;
    }
}

TEST(HistoryFile, IsReadOldestFirst) {
    const TemporaryFolder folder;
    EXPECT_EQ(ReadHistory(folder / "").Count(), 0u) << "no file";
    for (const char* year : {"1999", "2001", "2026"}) {
        ASSERT_EQ(AppendToHistory(folder / "", year + anaWins.substr(4)), FileError::None);
    }
    WriteBytes(folder / HistoryFileName, FileBytes(folder / HistoryFileName) + "2030");
    const History history = ReadHistory(folder / "");
    ASSERT_EQ(history.Count(), 4u);
    EXPECT_EQ(history.Record(2).substr(0, 4), "2026");
    EXPECT_EQ(history.Record(3), "2030");
}

TEST(HistoryFile, OfAMillionGamesIsReadAtOnce) {
    const TemporaryFolder folder;
    constexpr std::size_t games = 1'000'000;
    std::string bytes;
    for (std::size_t game = 0; game < games; ++game) bytes += anaWins;
    WriteBytes(folder / HistoryFileName, bytes);
    const auto begin = std::chrono::steady_clock::now();
    const History history = ReadHistory(folder / "");
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(2));
    ASSERT_EQ(history.Count(), games);
    EXPECT_EQ(history.Record(games - 1), anaWins);
}

TEST(HistoryFile, SaysWhyItCannotGrow) {
    const TemporaryFolder folder;
    EXPECT_EQ(AppendToHistory(folder / "missing", anaWins), FileError::PathNotFound);
    std::filesystem::create_directory(folder / HistoryFileName);
    EXPECT_EQ(AppendToHistory(folder / "", anaWins), FileError::PathAccess);
    EXPECT_EQ(ReadHistory(folder / "").Count(), 0u);
    std::filesystem::remove(folder / HistoryFileName);
    WriteBytes(folder / "elsewhere", anaWins);
    std::filesystem::create_symlink(folder / "elsewhere", folder / HistoryFileName);
    EXPECT_EQ(AppendToHistory(folder / "", anaWins), FileError::PathAccess);
    EXPECT_EQ(FileBytes(folder / "elsewhere"), anaWins) << "a link is not followed";
    EXPECT_EQ(ReadHistory(folder / "").Count(), 1u);
}

}  // namespace
}  // namespace zorva::test
