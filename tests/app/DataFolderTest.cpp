#include "app/DataFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <optional>

#include "tests/support/Files.h"

namespace zorva::test {
namespace {

namespace fs = std::filesystem;

/// An environment variable with another value for as long as it lives.
class Variable {
public:
    Variable(const char* name, const std::string& value) : name_(name) {
        if (const char* old = std::getenv(name)) old_ = old;
        setenv(name, value.c_str(), 1);
    }
    ~Variable() {
        if (old_) {
            setenv(name_, old_->c_str(), 1);
        } else {
            unsetenv(name_);
        }
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* name_;
    std::optional<std::string> old_;
};

/// A program folder with its two files, and a home.
class DataFolderTest : public testing::Test {
protected:
    DataFolderTest() {
        fs::create_directory(program);
        WriteBytes(program / "ZORVA32.INI", "settings");
        WriteBytes(program / "ZORVA32.HIS", "history");
    }

    /// Nothing can be created under the probe's name: as if the folder were read-only, to root, too.
    void LockProgramFolder() const { fs::create_directory(program / "CSCD.WRK"); }

    TemporaryFolder folder;
    fs::path program = folder / "program";
    fs::path fallback = folder / "share/zorva32";
    Variable home{"HOME", (folder / "home").string()};
    Variable dataHome{"XDG_DATA_HOME", (folder / "share").string()};
};

TEST_F(DataFolderTest, IsTheProgramsOwnWhenThatCanBeWritten) {
    EXPECT_EQ(ChooseDataFolder(program), program);
    EXPECT_FALSE(fs::exists(program / "CSCD.WRK")) << "the probe is taken away again";
    EXPECT_FALSE(fs::exists(fallback));
    WriteBytes(program / "CSCD.WRK", "left by a run that was killed");
    EXPECT_EQ(ChooseDataFolder(program), program);
    EXPECT_FALSE(fs::exists(program / "CSCD.WRK"));
    WriteBytes(folder / "precious", "not ours");
    fs::create_symlink(folder / "precious", program / "CSCD.WRK");
    EXPECT_EQ(ChooseDataFolder(program), program);
    EXPECT_EQ(FileBytes(folder / "precious"), "not ours") << "a link is not followed";
    EXPECT_FALSE(fs::is_symlink(program / "CSCD.WRK"));
}

TEST_F(DataFolderTest, IsTheUsersElseWithTheFilesOfTheFirstRun) {
    LockProgramFolder();
    fs::permissions(program / "ZORVA32.HIS", fs::perms{0444});
    EXPECT_EQ(ChooseDataFolder(program), fallback);
    EXPECT_NE(fs::status(fallback / "ZORVA32.HIS").permissions() & fs::perms::owner_write,
              fs::perms::none)
        << "the history is to grow";
    EXPECT_EQ(FileBytes(fallback / "ZORVA32.INI"), "settings");
    EXPECT_EQ(FileBytes(fallback / "ZORVA32.HIS"), "history");
    // Later runs find their own files.
    WriteBytes(fallback / "ZORVA32.INI", "my settings");
    WriteBytes(fallback / "ZORVA32.HIS", "my history");
    EXPECT_EQ(ChooseDataFolder(program), fallback);
    EXPECT_EQ(FileBytes(fallback / "ZORVA32.INI"), "my settings");
    EXPECT_EQ(FileBytes(fallback / "ZORVA32.HIS"), "my history");
}

// As when root plays what a package has installed.
TEST_F(DataFolderTest, IsNeverAnInstalledProgramsFolder) {
    const fs::path installed = folder / "share/games/zorva32";
    fs::create_directories(installed);
    const auto before = fs::last_write_time(program) - std::chrono::hours(1);
    fs::last_write_time(program, before);
    EXPECT_EQ(ChooseDataFolder(program), fallback);
    EXPECT_EQ(ChooseDataFolder(program / ""), fallback);
    EXPECT_EQ(FileBytes(fallback / "ZORVA32.INI"), "settings") << "of a version that wrote there";
    EXPECT_EQ(fs::last_write_time(program), before) << "not even the probe was written";
    // What was copied there with its manual is not installed.
    WriteBytes(program / "ZORVA32.HLP", "manual");
    EXPECT_EQ(ChooseDataFolder(program), program);
}

TEST_F(DataFolderTest, SurvivesWhateverIsMissing) {
    const struct {
        const char* name;
        fs::path programFolder;
    } rows[] = {{"a folder that is not there", folder / "nowhere"},
                {"a file where a folder should be", program / "ZORVA32.INI"},
                {"one with a slash behind", folder / "empty" / ""}};
    for (const auto& row : rows) {
        fs::remove_all(fallback);
        EXPECT_EQ(ChooseDataFolder(row.programFolder), fallback) << row.name;
        EXPECT_TRUE(fs::is_directory(fallback)) << row.name;
        EXPECT_TRUE(fs::is_empty(fallback)) << row.name;
    }
    // A history without settings is copied as well.
    LockProgramFolder();
    fs::remove(program / "ZORVA32.INI");
    fs::remove_all(fallback);
    EXPECT_EQ(ChooseDataFolder(program), fallback);
    EXPECT_EQ(FileBytes(fallback / "ZORVA32.HIS"), "history");
}

TEST_F(DataFolderTest, FollowsTheUsersDataHome) {
    LockProgramFolder();
    const fs::path inHome = folder / "home/.local/share/zorva32";
    const struct {
        const char* name;
        std::string value;
        fs::path wanted;
    } rows[] = {{"set", (folder / "other").string(), folder / "other/zorva32"},
                {"empty", "", inHome},
                {"relative", "somewhere/else", inHome}};
    for (const auto& row : rows) {
        const Variable dataHomeOfRow("XDG_DATA_HOME", row.value);
        EXPECT_EQ(ChooseDataFolder(program), row.wanted) << row.name;
        EXPECT_TRUE(fs::is_directory(row.wanted)) << row.name;
    }
    EXPECT_FALSE(fs::exists("somewhere")) << "a relative path is ignored";
}

TEST_F(DataFolderTest, HeedsPermissions) {
    if (geteuid() == 0) GTEST_SKIP() << "permissions do not bind root";
    chmod(program.c_str(), 0555);
    EXPECT_EQ(ChooseDataFolder(program), fallback);
    EXPECT_EQ(FileBytes(fallback / "ZORVA32.INI"), "settings");
    chmod(program.c_str(), 0755);
}

TEST_F(DataFolderTest, TheManualIsFoundBesideTheProgramOrWhereItIsInstalled) {
    const fs::path beside = program / "ZORVA32.HLP";
    const fs::path installed = folder / "share/games/zorva32/ZORVA32.HLP";
    EXPECT_EQ(FindManual(program), beside) << "where it is missed";
    fs::create_directories(installed.parent_path());
    WriteBytes(installed, "manual");
    EXPECT_TRUE(fs::equivalent(FindManual(program), installed));
    WriteBytes(beside, "another");
    EXPECT_EQ(FindManual(program), beside) << "comes first";
}

}  // namespace
}  // namespace zorva::test
