#pragma once

#include <filesystem>

namespace zorva {

/// The folder under which the fallback data folder lies: the user's folder for data of programs (on
/// Windows the system's own folder).
std::filesystem::path WindowsFolder();

/// Where the settings and the history lie: beside the program, when its folder can be written, which
/// is found out by creating "CSCD.WRK" there; else in the fallback folder, into which the program's
/// files are copied the first time. Nothing is ever written beside an installed program, whoever runs
/// it: one that has no manual beside it, but a folder share/games/zorva32 under the same prefix.
/// Whatever fails is judged by what can be opened afterwards.
std::filesystem::path ChooseDataFolder(const std::filesystem::path& programFolder);

/// Where the manual lies: beside the program, or where an installation puts it, seen from the program,
/// so that the whole may be moved. When it is nowhere, where it should be beside the program.
std::filesystem::path FindManual(const std::filesystem::path& programFolder);

}  // namespace zorva
