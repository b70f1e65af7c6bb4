#include "store/HistoryFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "tests/support/Files.h"

namespace zorva::test {
namespace {

FileError Append(const std::filesystem::path& folder, const std::string& record) {
    HistoryWriter writer;
    writer.Add(record);
    return writer.Write(folder);
}

const std::string anaWins = "200103050907Ana      Luis     Eva               250\r\n";

TEST(HistoryFile, WritesRecordsToTheByte) {
    std::tm when{};
    ASSERT_NE(strptime("2001-03-05 09:07", "%Y-%m-%d %H:%M", &when), nullptr);
    Settings settings;
    settings.PlayerName = {"", "Ana", "Begoña la larga", "Luis", "Íñigo"};
    struct Row {
        GameResult result;
        std::string record;
    };
    const Row rows[] = {
        {{1, {3, 4}, 250}, "200103050907Ana      Luis     \xCD\xF1igo             250\r\n"},
        {{2, {1, 3, 4}, 5}, "200103050907Bego\361a laAna      Luis     \xCD\xF1igo    005\r\n"},
        {{3, {}, 0}, "200103050907Luis                                000\r\n"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(HistoryRecordText(when, row.result, settings), row.record);
        EXPECT_EQ(row.record.size(), HistoryRecordLength);
    }
}

// The five texts of a record with a bar between them.
std::string Shown(const std::string& record) {
    const HistoryEntry entry = DecodeHistoryRecord(record);
    return entry.date + '|' + entry.time + '|' + entry.winner + '|' + entry.points + '|' + entry.losers;
}

TEST(HistoryFile, DecodesRecords) {
    struct Row {
        const char* name;
        std::string record;
        const char* shown;
    };
    const Row rows[] = {
        {"a game", anaWins, "05-03-2001|09:07|Ana|2.50|Luis, Eva"},
        {"three losers, points with blanks", "200103050907         Ana      Luis     Eva        5\r\n",
         "05-03-2001|09:07||0.05|Ana, Luis y Eva"},
        {"the first loser and the third", "200103050907         Ana               Eva      999\r\n",
         "05-03-2001|09:07||9.99|Ana y Eva"},
        {"the third alone, no points", "200103050907\xCD\xF1igo                      Eva      x9y\r\n",
         "05-03-2001|09:07|Íñigo|0.00|Eva"},
        {"cut off in a name", anaWins.substr(0, 32), "05-03-2001|09:07|Ana|0.00|Luis, Ev"},
        {"cut off in the date", "2001030", "|||0.00|"},
        {"blank but for its end", std::string(51, ' ') + "\r\n", "|||0.00|"},
    };
    for (const Row& row : rows) EXPECT_EQ(Shown(row.record), row.shown) << row.name;
}

TEST(HistoryFile, OnlyGrowsAndMendsATornRecord) {
    for (std::size_t torn = 0; torn <= HistoryRecordLength; ++torn) {
        const TemporaryFolder folder;
        const std::string before = anaWins + anaWins.substr(0, torn);
        WriteBytes(folder / HistoryFileName, before);
        ASSERT_EQ(Append(folder / "", anaWins), FileError::None);
        const std::string after = FileBytes(folder / HistoryFileName);
        EXPECT_EQ(after.size(), (torn == 0 ? 2 : 3) * HistoryRecordLength) << torn;
        EXPECT_EQ(after.substr(0, before.size()), before) << torn;
        EXPECT_EQ(after.substr(after.size() - 55), "\r\n" + anaWins) << torn;
    }
}

TEST(HistoryFile, IsReadOldestFirst) {
    const TemporaryFolder folder;
    EXPECT_EQ(ReadHistory(folder / "").Count(), 0u) << "no file";
    for (const char* year : {"1999", "2001", "2026"}) {
        ASSERT_EQ(Append(folder / "", year + anaWins.substr(4)), FileError::None);
    }
    WriteBytes(folder / HistoryFileName, FileBytes(folder / HistoryFileName) + "2030");
    const History history = ReadHistory(folder / "");
    ASSERT_EQ(history.Count(), 4u);
    EXPECT_EQ(history.Record(2), "2026" + anaWins.substr(4));
    EXPECT_EQ(history.Record(3), "2030");
}

TEST(HistoryFile, SaysWhyItCannotGrow) {
    const TemporaryFolder folder;
    EXPECT_EQ(Append(folder / "missing", anaWins), FileError::PathNotFound);
    for (const mode_t kind : {S_IFDIR, S_IFIFO, S_IFSOCK}) {
        const std::filesystem::path history = folder / HistoryFileName;
        ASSERT_EQ(
            kind == S_IFDIR ? mkdir(history.c_str(), 0777) : mknod(history.c_str(), kind | 0666, 0), 0);
        EXPECT_EQ(Append(folder / "", anaWins), FileError::PathAccess) << kind;
        EXPECT_EQ(ReadHistory(folder / "").Count(), 0u);
        std::filesystem::remove(history);
    }
    WriteBytes(folder / "elsewhere", anaWins);
    std::filesystem::create_symlink(folder / "elsewhere", folder / HistoryFileName);
    EXPECT_EQ(Append(folder / "", anaWins), FileError::PathAccess);
    EXPECT_EQ(FileBytes(folder / "elsewhere"), anaWins) << "a link is not followed";
}

}  // namespace
}  // namespace zorva::test
