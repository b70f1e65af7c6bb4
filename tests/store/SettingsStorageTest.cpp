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
const std::set<std::string> onlyTheFile{SettingsFileName};

std::set<std::string> NamesIn(const fs::path& folder) {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) names.insert(entry.path().filename());
    return names;
}

const Settings otherSettings{.Speed = 100};

TEST(SettingsStorage, AMissingFileIsCreatedWithTheDefaults) {
    const TemporaryFolder folder;
    const LoadedSettings created = LoadSettings(folder / "");
    EXPECT_EQ(created.outcome, LoadOutcome::Created);
    EXPECT_EQ(created.content.settings, Settings{});
    EXPECT_EQ(created.title, title);
    EXPECT_TRUE(created.text.starts_with("No se encuentra el fichero")) << created.text;
    EXPECT_EQ(FileBytes(folder / SettingsFileName), defaults);
}

TEST(SettingsStorage, WhatIsSavedIsLoadedFromAFileThatTheUsersMaskLimits) {
    const mode_t before = umask(027);
    for (const Durability durability : {Durability::Lazy, Durability::Flushed}) {
        const TemporaryFolder folder;
        ASSERT_EQ(SaveSettings(folder / "", otherSettings, GameState{}, durability), FileError::None);
        const LoadedSettings loaded = LoadSettings(folder / "");
        EXPECT_EQ(loaded.outcome, LoadOutcome::Loaded);
        EXPECT_EQ(loaded.title + loaded.text, "");
        EXPECT_EQ(loaded.content.settings, otherSettings);
        EXPECT_EQ(NamesIn(folder / ""), onlyTheFile);
        EXPECT_EQ(fs::status(folder / SettingsFileName).permissions(), static_cast<fs::perms>(0640));
        for (const auto mode : {fs::perms{0600}, fs::perms{0664}}) {
            fs::permissions(folder / SettingsFileName, mode);
            SaveSettings(folder / "", otherSettings, GameState{}, durability);
            EXPECT_EQ(fs::status(folder / SettingsFileName).permissions(), mode) << "kept";
        }
    }
    umask(before);
}

TEST(SettingsStorage, ADamagedFileIsKeptAndNeverOverwritten) {
    const TemporaryFolder folder;
    const std::string damages[] = {"4,0,0", "una línea\r\n", "4,0,0"};
    for (const std::string& damage : damages) {
        WriteBytes(folder / SettingsFileName, damage);
        const LoadedSettings refused = LoadSettings(folder / "");
        EXPECT_EQ(refused.outcome, LoadOutcome::Damaged);
        EXPECT_EQ(refused.title, title);
        EXPECT_EQ(refused.text, damage == "4,0,0" ? "CID ERROR 62" : "CID ERROR 13");
        EXPECT_EQ(refused.content.settings, Settings{});
        EXPECT_EQ(FileBytes(folder / SettingsFileName), defaults);
    }
    for (const char number : {'1', '2', '3'}) {
        EXPECT_EQ(FileBytes(folder / (std::string("ZORVA32-") + number + ".MAL")),
                  damages[number - '1']);
    }
}

TEST(SettingsStorage, ADamagedGameDoesNotCostTheSettings) {
    const TemporaryFolder folder;
    const std::string good = SettingsText(otherSettings, {});
    WriteBytes(folder / SettingsFileName, "5" + good.substr(1));  // pieces in a box
    const LoadedSettings refused = LoadSettings(folder / "");
    EXPECT_EQ(refused.text, "CID ERROR 9");
    EXPECT_EQ(refused.explanation,
              "Los jugadores y los ajustes se conservan, pero la partida no se puede leer. El fichero "
              "dañado queda en " +
                  (folder / "ZORVA32-1.MAL").string() + ".");
    EXPECT_EQ(refused.content.settings, otherSettings);
    EXPECT_EQ(FileBytes(folder / SettingsFileName), good);
}

TEST(SettingsStorage, WhatIsNoFileIsRefusedWithoutWaiting) {
    using Put = void (*)(const fs::path& path);
    const std::pair<const char*, Put> rows[] = {
        {"CID ERROR 75", [](const fs::path& path) { fs::create_directory(path); }},
        {"CID ERROR 75", [](const fs::path& path) { mkfifo(path.c_str(), 0666); }},
        {"CID ERROR 75", [](const fs::path& path) { mknod(path.c_str(), S_IFSOCK | 0666, 0); }},
        {"CID ERROR 75", [](const fs::path& path) { fs::create_symlink(path, path); }},
        {"CID ERROR 9",
         [](const fs::path& path) {
             WriteBytes(path, "4,0");
             fs::resize_file(path, (1 << 20) + 1);
         }},
    };
    for (const auto& [text, put] : rows) {
        const TemporaryFolder folder;
        put(folder / SettingsFileName);
        const LoadedSettings refused = LoadSettings(folder / "");
        EXPECT_EQ(refused.text, text);
        EXPECT_EQ(refused.keptAs, folder / "ZORVA32-1.MAL");
        EXPECT_EQ(FileBytes(folder / SettingsFileName), defaults);
    }
}

TEST(SettingsStorage, AFailedRenamingLeavesNoTemporaryFile) {
    const TemporaryFolder folder;
    fs::create_directory(folder / SettingsFileName);
    EXPECT_EQ(SaveSettings(folder / "", {}, {}, Durability::Lazy), FileError::PathAccess);
    EXPECT_EQ(NamesIn(folder / ""), onlyTheFile);
}

TEST(SettingsStorage, AVanishedFolder) {
    const TemporaryFolder folder;
    const LoadedSettings refused = LoadSettings(folder / "missing");
    EXPECT_EQ(refused.outcome, LoadOutcome::Damaged);
    EXPECT_EQ(refused.text, "CID ERROR 76: No existe el fichero de inicialización ZORVA32.INI");
    EXPECT_EQ(SaveSettings(folder / "missing", {}, {}, Durability::Lazy), FileError::PathNotFound);
}

TEST(SettingsStorage, AFullDiskLeavesTheOldFileAndIsSaidToBeFull) {
    const TemporaryFolder folder, empty;
    WriteBytes(folder / SettingsFileName, "old");
    rlimit usual{};
    getrlimit(RLIMIT_FSIZE, &usual);
    const rlimit hundredBytes{100, usual.rlim_max};  // no file can grow beyond them
    const auto handler = signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &hundredBytes);
    const FileError error = SaveSettings(folder / "", {}, {}, Durability::Flushed);
    const LoadedSettings created = LoadSettings(empty / "");
    setrlimit(RLIMIT_FSIZE, &usual);
    signal(SIGXFSZ, handler);
    EXPECT_EQ(error, FileError::DiskFull);
    EXPECT_EQ(NamesIn(folder / ""), onlyTheFile);
    EXPECT_EQ(FileBytes(folder / SettingsFileName), "old");
    EXPECT_EQ(created.outcome, LoadOutcome::Created);
    EXPECT_EQ(created.writeError, FileError::DiskFull);
    EXPECT_EQ(created.title + created.text, "") << "told twice";
    EXPECT_TRUE(NamesIn(empty / "").empty());
}

TEST(SettingsStorage, AReadOnlyFolderIsSaidToBe) {
    const TemporaryFolder folder;
    WriteBytes(folder / SettingsFileName, "4,0");
    fs::permissions(folder / "", static_cast<fs::perms>(0555));
    const bool isRoot = getuid() == 0;  // for whom no folder is read-only
    ASSERT_TRUE(!isRoot || seteuid(65534) == 0);
    const LoadedSettings refused = LoadSettings(folder / "");
    const FileError error = SaveSettings(folder / "", {}, {}, Durability::Lazy);
    ASSERT_TRUE(!isRoot || seteuid(0) == 0);
    EXPECT_EQ(refused.text + refused.keptAs.string(), "CID ERROR 62");
    EXPECT_EQ(error, FileError::PermissionDenied);
    fs::permissions(folder / "", static_cast<fs::perms>(0755));
    EXPECT_EQ(FileBytes(folder / SettingsFileName), "4,0");
}

TEST(SettingsStorage, UsesUpWhatAKilledRunLeft) {
    const TemporaryFolder folder;
    WriteBytes(folder / "elsewhere", SettingsText(otherSettings, {}));
    fs::create_symlink(folder / "elsewhere", folder / "ZORVA32.TMP");
    fs::create_symlink(folder / "elsewhere", folder / SettingsFileName);
    EXPECT_EQ(LoadSettings(folder / "").content.settings, otherSettings) << "a link is read";
    EXPECT_EQ(SaveSettings(folder / "", {}, {}, Durability::Lazy), FileError::None);
    EXPECT_EQ(FileBytes(folder / "elsewhere"), SettingsText(otherSettings, {}))
        << "but not written through";
    EXPECT_EQ(FileBytes(folder / SettingsFileName), defaults);
    EXPECT_EQ(NamesIn(folder / ""), (std::set<std::string>{SettingsFileName, "elsewhere"}));
}

}  // namespace
}  // namespace zorva::test
