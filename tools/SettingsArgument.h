#pragma once

#include <string>

#include "store/SettingsFile.h"

namespace zorva {

/// Reads a settings file given as an argument. Throws a Failure if it is missing or damaged; unlike the
/// game, the tool neither repairs nor renames it.
SettingsContent ReadSettingsArgument(const std::string& fileName);

/// Writes a settings file, over an existing one if there is
/// one. Throws a Failure if that is not possible.
void WriteSettingsArgument(const std::string& fileName, const SettingsContent& content);

}  // namespace zorva
