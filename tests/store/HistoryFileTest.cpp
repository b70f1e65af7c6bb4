#include "store/HistoryFile.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

#include "tests/support/Files.h"

namespace zorva::test {
namespace {

std::tm At(int year, int month, int day, int hour, int minute) {
    std::tm when{};
    when.tm_year = year - 1900;
    when.tm_mon = month - 1;
    when.tm_mday = day;
    when.tm_hour = hour;
    when.tm_min = minute;
    return when;
}

const std::string anaWins = "200103050907Ana      Luis     Eva               250\r\n";

TEST(HistoryFile, WritesRecordsToTheByte) {
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
        EXPECT_EQ(HistoryRecordText(At(2001, 3, 5, 9, 7), row.result, settings), row.record);
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
    const auto entryOf = [](const std::string& text) {
        return HistoryEntry{"05-03-2001", "09:07", "", "2.50", text};
    };
    const Row rows[] = {
        {"a game", anaWins, {"05-03-2001", "09:07", "Ana", "2.50", "Luis, Eva"}},
        {"three losers", losers(ana + luis + eva), entryOf("Ana, Luis y Eva")},
        {"the first and the third", losers(ana + none + eva), entryOf("Ana y Eva")},
        {"the second and the third", losers(none + luis + eva), entryOf("Luis y Eva")},
        {"the third alone", losers(none + none + eva), entryOf("Eva")},
        {"nobody", losers(none + none + none), entryOf("")},
        {"accents", losers("\xCD\xF1igo    " + none + none), entryOf("Íñigo")},
        {"points with blanks",
         time + ana + none + none + none + "  5\r\n",
         {"05-03-2001", "09:07", "Ana", "0.05", ""}},
        {"no points",
         time + ana + none + none + none + "   \r\n",
         {"05-03-2001", "09:07", "Ana", "0.00", ""}},
        {"points that are none",
         time + ana + none + none + none + "x9y\r\n",
         {"05-03-2001", "09:07", "Ana", "0.00", ""}},
        {"most points",
         time + ana + none + none + none + "999\r\n",
         {"05-03-2001", "09:07", "Ana", "9.99", ""}},
        {"cut off in the second loser",
         time + ana + luis + "Ev",
         {"05-03-2001", "09:07", "Ana", "0.00", "Luis, Ev"}},
        {"cut off in the date", "20010", {"", "", "", "0.00", ""}},
        {"blank but for its end", std::string(51, ' ') + "\r\n", {"", "", "", "0.00", ""}},
        {"nothing at all", "", {"", "", "", "0.00", ""}},
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
    EXPECT_EQ(DecodeHistoryRecord(history.Record(0)).date, "05-03-1999");
    EXPECT_EQ(DecodeHistoryRecord(history.Record(2)).date, "05-03-2026");
    EXPECT_EQ(history.Record(3), "2030");
}

TEST(HistoryFile, OfAMillionGamesIsReadAtOnce) {
    const TemporaryFolder folder;
    constexpr std::size_t games = 1'000'000;
    std::string bytes;
    bytes.reserve(games * HistoryRecordLength);
    for (std::size_t game = 0; game < games; ++game) bytes += anaWins;
    WriteBytes(folder / HistoryFileName, bytes);
    const auto begin = std::chrono::steady_clock::now();
    const History history = ReadHistory(folder / "");
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
    ASSERT_EQ(history.Count(), games);
    EXPECT_EQ(history.Record(games - 1), anaWins);
    EXPECT_LT(took.count(), 2.0);
    RecordProperty("milliseconds", static_cast<int>(took.count() * 1000));
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
