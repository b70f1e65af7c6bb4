#include "store/SettingsStorage.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <set>

#include "tests/support/Files.h"

namespace zorva::test {
namespace {

namespace fs = std::filesystem;

const std::string title = "Error en la carga de datos iniciales";
const std::string defaults = SettingsText(Settings{}, GameState{});

std::set<std::string> NamesIn(const fs::path& folder) {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) names.insert(entry.path().filename());
    return names;
}

Settings OtherSettings() {
    Settings settings;
    settings.PlayerName[2] = "Begoña";
    settings.Speed = 100;
    return settings;
}

/// While it lives no file may grow beyond that many bytes, as if the disk were full.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) {
        previousHandler_ = signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &previous_);
        const rlimit limit{bytes, previous_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &previous_);
        signal(SIGXFSZ, previousHandler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit previous_{};
    sighandler_t previousHandler_;
};

TEST(SettingsStorage, AMissingFileIsCreatedWithTheDefaults) {
    const TemporaryFolder folder;
    const LoadedSettings created = LoadSettings(folder / "");
    EXPECT_EQ(created.outcome, LoadOutcome::Created);
    EXPECT_EQ(created.content.settings, Settings{});
    EXPECT_EQ(created.writeError, FileError::None);
    EXPECT_EQ(created.title, title);
    EXPECT_TRUE(created.text.starts_with("No se encuentra el fichero de inicialización"))
        << created.text;
    EXPECT_EQ(FileBytes(folder / SettingsFileName), defaults);
    const LoadedSettings loaded = LoadSettings(folder / "");
    EXPECT_EQ(loaded.outcome, LoadOutcome::Loaded);
    EXPECT_EQ(loaded.title + loaded.text, "");
    EXPECT_EQ(loaded.content.settings, created.content.settings);
}

TEST(SettingsStorage, WhatIsSavedIsLoadedFromAFileThatTheUsersMaskLimits) {
    const mode_t before = umask(027);
    for (const Durability durability : {Durability::Lazy, Durability::Flushed}) {
        const TemporaryFolder folder;
        ASSERT_EQ(SaveSettings(folder / "", OtherSettings(), GameState{}, durability), FileError::None);
        EXPECT_EQ(LoadSettings(folder / "").content.settings, OtherSettings());
        EXPECT_EQ(NamesIn(folder / ""), (std::set<std::string>{SettingsFileName}));
        EXPECT_EQ(fs::status(folder / SettingsFileName).permissions(), static_cast<fs::perms>(0640));
    }
    umask(before);
}

TEST(SettingsStorage, ADamagedFileIsKeptAndNeverOverwritten) {
    const TemporaryFolder folder;
    const std::string damages[] = {"4,0,0", "una línea\r\n", "", "4,0,0"};
    const std::string texts[] = {"CID ERROR 62", "CID ERROR 13", "CID ERROR 62", "CID ERROR 62"};
    for (int number = 0; number < 4; ++number) {
        WriteBytes(folder / SettingsFileName, damages[number]);
        const LoadedSettings refused = LoadSettings(folder / "");
        EXPECT_EQ(refused.outcome, LoadOutcome::Damaged);
        EXPECT_EQ(refused.title, title);
        EXPECT_EQ(refused.text, texts[number]);
        EXPECT_EQ(refused.content.settings, Settings{});
        EXPECT_EQ(refused.content.state.GameInProgress, No);
        EXPECT_EQ(FileBytes(folder / SettingsFileName), defaults);
    }
    for (int number = 0; number < 4; ++number) {
        EXPECT_EQ(FileBytes(folder / ("ZORVA32-" + std::to_string(number + 1) + ".MAL")),
                  damages[number]);
    }
}

TEST(SettingsStorage, WhatIsNoFileIsRefusedWithoutWaiting) {
    struct Row {
        const char* name;
        void (*put)(const fs::path& path);
        const char* text;
    };
    const Row rows[] = {
        {"a folder", [](const fs::path& path) { fs::create_directory(path); }, "CID ERROR 75"},
        {"a pipe", [](const fs::path& path) { mkfifo(path.c_str(), 0666); }, "CID ERROR 75"},
        {"a link to itself", [](const fs::path& path) { fs::create_symlink(path, path); },
         "CID ERROR 75"},
        {"a file of two gigabytes",
         [](const fs::path& path) {
             WriteBytes(path, "4,0");
             fs::resize_file(path, std::uintmax_t{1} << 31);
         },
         "CID ERROR 9"},
    };
    for (const Row& row : rows) {
        const TemporaryFolder folder;
        row.put(folder / SettingsFileName);
        const LoadedSettings refused = LoadSettings(folder / "");
        EXPECT_EQ(refused.text, row.text) << row.name;
        EXPECT_EQ(refused.keptAs, folder / "ZORVA32-1.MAL") << row.name;
        EXPECT_EQ(FileBytes(folder / SettingsFileName), defaults) << row.name;
    }
}

TEST(SettingsStorage, AVanishedFolder) {
    const TemporaryFolder folder;
    const LoadedSettings refused = LoadSettings(folder / "missing");
    EXPECT_EQ(refused.outcome, LoadOutcome::Damaged);
    EXPECT_EQ(refused.text, "CID ERROR 76: No existe el fichero de inicialización ZORVA32.INI");
    EXPECT_EQ(refused.keptAs, "");
    EXPECT_EQ(SaveSettings(folder / "missing", {}, {}, Durability::Lazy), FileError::PathNotFound);
}

TEST(SettingsStorage, AFullDiskLeavesTheOldFileAndIsSaidToBeFull) {
    const TemporaryFolder folder;
    ASSERT_EQ(SaveSettings(folder / "", OtherSettings(), {}, Durability::Lazy), FileError::None);
    const TemporaryFolder empty;
    LoadedSettings created;
    {
        const FullDisk full(100);
        EXPECT_EQ(SaveSettings(folder / "", Settings{}, {}, Durability::Flushed), FileError::DiskFull);
        created = LoadSettings(empty / "");
    }
    EXPECT_EQ(NamesIn(folder / ""), (std::set<std::string>{SettingsFileName}));
    EXPECT_EQ(LoadSettings(folder / "").content.settings, OtherSettings());
    EXPECT_EQ(created.outcome, LoadOutcome::Created);
    EXPECT_EQ(created.writeError, FileError::DiskFull);
    EXPECT_EQ(created.text, SaveErrorText(FileError::DiskFull, SettingsFileName));
    EXPECT_TRUE(NamesIn(empty / "").empty());
}

/// While it lives the program is not the superuser, for whom nothing is read-only.
class OrdinaryUser {
public:
    OrdinaryUser() { Become(65534); }
    ~OrdinaryUser() { Become(0); }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    void Become(uid_t user) {
        if (wasRoot_ && seteuid(user) != 0) ADD_FAILURE() << "cannot change the user";
    }
    const bool wasRoot_ = getuid() == 0;
};

TEST(SettingsStorage, AReadOnlyFolderIsSaidToBe) {
    const TemporaryFolder folder;
    WriteBytes(folder / SettingsFileName, "4,0");
    fs::permissions(folder / "", static_cast<fs::perms>(0555));
    {
        const OrdinaryUser user;
        const LoadedSettings refused = LoadSettings(folder / "");
        EXPECT_EQ(refused.text, "CID ERROR 62");
        EXPECT_EQ(refused.keptAs, "");
        EXPECT_EQ(SaveSettings(folder / "", {}, {}, Durability::Lazy), FileError::PermissionDenied);
    }
    fs::permissions(folder / "", static_cast<fs::perms>(0755));
    EXPECT_EQ(FileBytes(folder / SettingsFileName), "4,0");
    EXPECT_EQ(NamesIn(folder / ""), (std::set<std::string>{SettingsFileName}));
}

TEST(SettingsStorage, UsesUpWhatAKilledRunLeft) {
    const TemporaryFolder folder;
    WriteBytes(folder / "elsewhere", "not ours");
    fs::create_symlink(folder / "elsewhere", folder / "ZORVA32.TMP");
    EXPECT_EQ(SaveSettings(folder / "", {}, {}, Durability::Lazy), FileError::None);
    EXPECT_EQ(FileBytes(folder / "elsewhere"), "not ours") << "a link is not followed";
    WriteBytes(folder / "ZORVA32.TMP", std::string(100000, 'x'));
    EXPECT_EQ(SaveSettings(folder / "", {}, {}, Durability::Lazy), FileError::None);
    EXPECT_EQ(FileBytes(folder / SettingsFileName), defaults);
    EXPECT_EQ(NamesIn(folder / ""), (std::set<std::string>{SettingsFileName, "elsewhere"}));
    // A link in the file's own place is read but gives way to a file.
    WriteBytes(folder / "elsewhere", SettingsText(OtherSettings(), {}));
    fs::remove(folder / SettingsFileName);
    fs::create_symlink(folder / "elsewhere", folder / SettingsFileName);
    EXPECT_EQ(LoadSettings(folder / "").content.settings, OtherSettings());
    EXPECT_EQ(SaveSettings(folder / "", {}, {}, Durability::Lazy), FileError::None);
    EXPECT_EQ(FileBytes(folder / "elsewhere"), SettingsText(OtherSettings(), {}));
    EXPECT_EQ(FileBytes(folder / SettingsFileName), defaults);
}

}  // namespace
}  // namespace zorva::test
