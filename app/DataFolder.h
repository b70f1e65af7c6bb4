#pragma once

#include <filesystem>

namespace zorva {

/// The folder under which the fallback data folder lies: the user's folder for data of programs (on
/// Windows the system's own folder).
std::filesystem::path WindowsFolder();

/// Where the settings and the history lie: beside the program, when its folder can be written, which
/// is found out by creating "CSCD.WRK" there; else in the fallback folder, into which the program's
/// files are copied the first time. Whatever fails is judged by what can be opened afterwards.
std::filesystem::path ChooseDataFolder(const std::filesystem::path& programFolder);

}  // namespace zorva
