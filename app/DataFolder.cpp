#include "app/DataFolder.h"

#include <cstdlib>
#include <fstream>
#include <system_error>

#include "store/HistoryFile.h"
#include "store/SettingsFile.h"

namespace zorva {
namespace {

namespace fs = std::filesystem;

fs::path EnvironmentPath(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? fs::path() : fs::path(value);
}

bool IsWritable(const fs::path& folder) {
    const fs::path probe = folder / "CSCD.WRK";
    const bool created = std::ofstream(probe).is_open();
    std::error_code ignored;
    if (created) fs::remove(probe, ignored);
    return created;
}

fs::path FallbackFolder() {
#ifdef _WIN32
    return WindowsFolder() / "Temp" / "Kdw";
#else
    return WindowsFolder() / "zorva32";
#endif
}

void CopyFilesOfFirstRun(const fs::path& from, const fs::path& to) {
    if (std::ifstream(to / SettingsFileName).is_open()) return;
    std::error_code ignored;
    fs::copy_file(from / SettingsFileName, to / SettingsFileName, ignored);
    fs::copy_file(from / HistoryFileName, to / HistoryFileName, ignored);
}

}  // namespace

fs::path WindowsFolder() {
#ifdef _WIN32
    return EnvironmentPath("SystemRoot");
#else
    // By the desktops' agreement a relative path in the variable counts for nothing.
    const fs::path data = EnvironmentPath("XDG_DATA_HOME");
    return data.is_absolute() ? data : EnvironmentPath("HOME") / ".local" / "share";
#endif
}

fs::path ChooseDataFolder(const fs::path& programFolder) {
    if (IsWritable(programFolder)) return programFolder;
    const fs::path folder = FallbackFolder();
    std::error_code ignored;
    fs::create_directories(folder, ignored);
    CopyFilesOfFirstRun(programFolder, folder);
    return folder;
}

}  // namespace zorva
