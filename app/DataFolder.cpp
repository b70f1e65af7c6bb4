#include "app/DataFolder.h"

#ifndef _WIN32
#include <pwd.h>
#include <unistd.h>
#endif

#include <cstdlib>
#include <system_error>

#include "store/FileReplacement.h"
#include "store/HistoryFile.h"
#include "store/SettingsFile.h"
#include "store/SystemFile.h"

namespace zorva {
namespace {

namespace fs = std::filesystem;

// Bytes, so that a copy never fills the memory. A longer file is not copied at the first run.
constexpr std::size_t longestFile = std::size_t{1} << 28;

fs::path EnvironmentPath(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? fs::path() : fs::path(value);
}

#ifndef _WIN32
// A program that the system starts may have no HOME. An account that the system does not know has no
// home either: then the game can keep nothing and tells the player so.
fs::path Home() {
    const fs::path home = EnvironmentPath("HOME");
    if (home.is_absolute()) return home;
    const passwd* user = getpwuid(getuid());
    return user != nullptr ? user->pw_dir : "/";
}
#endif

constexpr const char* ManualFileName = "ZORVA32.HLP";

// Where an installation puts the manual, seen from the program.
fs::path InstalledManualFolder(const fs::path& programFolder) {
    return programFolder / "../share/games/zorva32";
}

// An installed program shares its folder with others. A program that was only copied has its manual
// beside it.
bool IsInstalled(const fs::path& programFolder) {
#ifdef _WIN32
    static_cast<void>(programFolder);
    return false;  // an installed program has a folder of its own there
#else
    std::error_code ignored;
    return !fs::exists(programFolder / ManualFileName, ignored) &&
           fs::is_directory(InstalledManualFolder(programFolder), ignored);
#endif
}

bool IsWritable(const fs::path& folder) {
    const fs::path probe = folder / "CSCD.WRK";
    std::error_code error;
    if (fs::is_directory(fs::symlink_status(probe, error))) return false;
    // Removed, not written to: it may be a link to something else.
    fs::remove(probe, error);
    if (error) return false;
    const FileError writing = WriteNewFile(probe, {}, Durability::Lazy);
    if (writing == FileError::None) fs::remove(probe, error);
    // A name that is taken again shows that another start has just created it.
    return writing == FileError::None || writing == FileError::PathAccess;
}

fs::path FallbackFolder() {
#ifdef _WIN32
    return WindowsFolder() / "Temp" / "Kdw";
#else
    return WindowsFolder() / "zorva32";
#endif
}

// In one step, as a new file with its permissions: the copy of a read-only history could not grow.
// Returns false only if the copy could not be written; a missing file needs none.
bool CopyFile(const fs::path& from, const fs::path& to) {
    std::string bytes;
    if (IsTaken(to) || ReadWholeFile(from, longestFile, bytes) != FileError::None) return true;
    return ReplaceFile(to, bytes, Durability::Flushed) == FileError::None;
}

}  // namespace

fs::path WindowsFolder() {
#ifdef _WIN32
    return EnvironmentPath("SystemRoot");
#else
    // The desktops have agreed that a relative path in this variable is ignored.
    const fs::path data = EnvironmentPath("XDG_DATA_HOME");
    return data.is_absolute() ? data : Home() / ".local" / "share";
#endif
}

fs::path ChooseDataFolder(const fs::path& programFolder) {
    if (!IsInstalled(programFolder) && IsWritable(programFolder)) return programFolder;
    fs::path folder = FallbackFolder();
    std::error_code ignored;
    fs::create_directories(folder.parent_path(), ignored);
    // Closed to other users, who could lock a folder that they may read.
    if (fs::create_directory(folder, ignored)) fs::permissions(folder, fs::perms::owner_all, ignored);
    return folder;
}

// The settings last: when they are there, all has been copied.
fs::path CopyFilesOfFirstRun(const fs::path& programFolder, const fs::path& dataFolder) {
    const auto copy = [&](const char* name) {
        return CopyFile(programFolder / name, dataFolder / name);
    };
    const auto hasSettings = [](const fs::path& folder) { return IsTaken(folder / SettingsFileName); };
    if (!hasSettings(dataFolder) && copy(HistoryFileName)) copy(SettingsFileName);
    const bool onlyBeside = !hasSettings(dataFolder) && hasSettings(programFolder);
    return onlyBeside && !IsInstalled(programFolder) ? programFolder : dataFolder;
}

fs::path FindManual(const fs::path& programFolder) {
    const fs::path beside = programFolder / ManualFileName;
    const fs::path installed = InstalledManualFolder(programFolder) / ManualFileName;
    std::error_code ignored;
    return !fs::exists(beside, ignored) && fs::exists(installed, ignored) ? installed : beside;
}

}  // namespace zorva
