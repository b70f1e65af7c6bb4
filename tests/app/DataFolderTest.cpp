#include "app/DataFolder.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <future>

#include "tests/support/Files.h"

namespace zorva::test {
namespace {

namespace fs = std::filesystem;

/// A program folder with its two files, and a home.
class DataFolderTest : public testing::Test {
protected:
    DataFolderTest() {
        setenv("HOME", (folder / "home").c_str(), 1);
        setenv("XDG_DATA_HOME", (folder / "share").c_str(), 1);
        fs::create_directory(program);
        WriteBytes(program / "ZORVA32.INI", "settings");
        WriteBytes(program / "ZORVA32.HIS", "history");
    }

    fs::path Choose() const { return CopyFilesOfFirstRun(program, ChooseDataFolder(program)); }

    /// Nothing can be created under the probe's name: as if the folder were read-only, to root, too.
    void LockProgramFolder() const { fs::create_directory(program / "CSCD.WRK"); }

    TemporaryFolder folder;
    fs::path program = folder / "program";
    fs::path fallback = folder / "share/zorva32";
};

TEST_F(DataFolderTest, IsTheProgramsOwnWhenThatCanBeWritten) {
    WriteBytes(program / "CSCD.WRK", "left by a run that was killed");
    EXPECT_EQ(ChooseDataFolder(program), program);
    EXPECT_FALSE(fs::exists(program / "CSCD.WRK")) << "the probe is taken away again";
    EXPECT_FALSE(fs::exists(fallback));
    WriteBytes(folder / "precious", "not ours");
    fs::create_symlink(folder / "precious", program / "CSCD.WRK");
    EXPECT_EQ(ChooseDataFolder(program), program);
    EXPECT_EQ(FileBytes(folder / "precious"), "not ours") << "a link is not followed";
    const auto startOften = [this] {
        for (int start = 0; start < 300; ++start) EXPECT_EQ(ChooseDataFolder(program), program);
    };
    const auto another = std::async(std::launch::async, startOften);
    startOften();
}

TEST_F(DataFolderTest, IsTheUsersElseWithTheFilesOfTheFirstRun) {
    LockProgramFolder();
    fs::permissions(program / "ZORVA32.HIS", fs::perms{0444});
    EXPECT_EQ(Choose(), fallback);
    EXPECT_EQ(fs::status(fallback).permissions(), fs::perms::owner_all) << "nobody else can lock it";
    EXPECT_NE(fs::status(fallback / "ZORVA32.HIS").permissions() & fs::perms::owner_write,
              fs::perms::none)
        << "the history is to grow";
    EXPECT_EQ(FileBytes(fallback / "ZORVA32.INI"), "settings");
    EXPECT_EQ(FileBytes(fallback / "ZORVA32.HIS"), "history");
    // Later runs find their own files.
    WriteBytes(fallback / "ZORVA32.INI", "my settings");
    EXPECT_EQ(Choose(), fallback);
    EXPECT_EQ(FileBytes(fallback / "ZORVA32.INI"), "my settings");
    fs::remove(fallback / "ZORVA32.INI");
    WriteBytes(fallback / "ZORVA32.HIS", "longer history");
    Choose();
    EXPECT_EQ(FileBytes(fallback / "ZORVA32.INI"), "settings");
    EXPECT_EQ(FileBytes(fallback / "ZORVA32.HIS"), "longer history") << "never replaced";
    fs::remove(fallback / "ZORVA32.INI");
    mkfifo((fallback / "ZORVA32.INI").c_str(), 0666);
    Choose();  // and does not wait for the pipe
}

TEST_F(DataFolderTest, GetsNoSettingsBeforeTheHistoryIsThere) {
    LockProgramFolder();
    fs::resize_file(program / "ZORVA32.HIS", 200);
    rlimit usual{};
    getrlimit(RLIMIT_FSIZE, &usual);
    const rlimit hundredBytes{100, usual.rlim_max};  // as on a disk that is nearly full
    const auto handler = signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &hundredBytes);
    Choose();
    setrlimit(RLIMIT_FSIZE, &usual);
    signal(SIGXFSZ, handler);
    EXPECT_TRUE(fs::is_empty(fallback));
    Choose();
    EXPECT_EQ(fs::file_size(fallback / "ZORVA32.HIS"), 200u);
    EXPECT_EQ(FileBytes(fallback / "ZORVA32.INI"), "settings");
}

TEST_F(DataFolderTest, IsTheProgramsOwnWhenItsFilesCanOnlyBeRead) {
    LockProgramFolder();
    WriteBytes(folder / "share", "no folder");
    EXPECT_EQ(Choose(), program);
    fs::remove(program / "ZORVA32.INI");
    EXPECT_EQ(Choose(), fallback) << "nothing to read";
}

// As when root plays what a package has installed.
TEST_F(DataFolderTest, IsNeverAnInstalledProgramsFolder) {
    const fs::path installed = folder / "share/games/zorva32";
    fs::create_directories(installed);
    const auto before = fs::last_write_time(program) - std::chrono::hours(1);
    fs::last_write_time(program, before);
    EXPECT_EQ(Choose(), fallback);
    EXPECT_EQ(FileBytes(fallback / "ZORVA32.INI"), "settings") << "of a version that wrote there";
    EXPECT_EQ(fs::last_write_time(program), before) << "not even the probe was written";
    // What was copied there with its manual is not installed.
    WriteBytes(program / "ZORVA32.HLP", "manual");
    EXPECT_EQ(ChooseDataFolder(program), program);
}

TEST_F(DataFolderTest, SurvivesWhateverIsMissing) {
    for (const fs::path& notAFolder : {folder / "nowhere", program / "ZORVA32.INI"}) {
        fs::remove_all(fallback);
        EXPECT_EQ(ChooseDataFolder(notAFolder), fallback);
        EXPECT_TRUE(fs::is_directory(fallback) && fs::is_empty(fallback)) << notAFolder;
    }
}

TEST_F(DataFolderTest, FollowsTheUsersDataHome) {
    LockProgramFolder();
    const fs::path inHome = folder / "home/.local/share/zorva32";
    for (const auto& [value, wanted] : {std::pair{folder / "other", folder / "other/zorva32"},
                                        {fs::path(), inHome},
                                        {fs::path("somewhere/else"), inHome}}) {
        setenv("XDG_DATA_HOME", value.c_str(), 1);
        EXPECT_EQ(ChooseDataFolder(program), wanted);
        EXPECT_TRUE(fs::is_directory(wanted)) << wanted;
    }
    EXPECT_FALSE(fs::exists("somewhere")) << "a relative path is ignored";
    for (const char* home : {"", "somewhere"}) {
        setenv("HOME", home, 1);
        EXPECT_EQ(WindowsFolder(), fs::path(getpwuid(getuid())->pw_dir) / ".local/share") << home;
    }
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
