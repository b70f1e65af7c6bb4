#pragma once

#include <filesystem>

namespace zorva {

/// The folder in which the fallback data folder lies: $XDG_DATA_HOME or ~/.local/share, where ~ is $HOME
/// or, if that is no absolute path, the home that the system knows; on Windows the system's own folder.
std::filesystem::path WindowsFolder();

/// Where the settings and the history lie: beside the program, if the file "CSCD.WRK" can be created
/// there; else in the fallback folder, which is created for the user alone.
///
/// Nothing is ever written beside an installed program, even when root runs it. A program is installed
/// if it has no manual beside it, but a folder share/games/zorva32 under the same prefix.
///
/// Errors are ignored: loading and saving report later what cannot be opened.
std::filesystem::path ChooseDataFolder(const std::filesystem::path& programFolder);

/// Copies the history and the settings from the program's folder to the data folder, unless there are
/// settings already. A history that is there stays. The settings are copied last, and only if the
/// history could be: where there are settings, the history is there, too. No other program may use the
/// data folder meanwhile.
///
/// Returns the folder to use from then on. Where the files cannot be copied that is the program's, so
/// that they are at least read, unless the program is installed.
std::filesystem::path CopyFilesOfFirstRun(const std::filesystem::path& programFolder,
                                          const std::filesystem::path& dataFolder);

/// The path of the manual: beside the program, else where an installation puts it, which is found from
/// the program's folder so that an installation may be moved. When it is in neither, the path beside the
/// program.
std::filesystem::path FindManual(const std::filesystem::path& programFolder);

}  // namespace zorva
