#pragma once

#include <string>

#include "store/SettingsFile.h"

namespace zorva {

/// Reads a settings file that must exist; a missing or malformed one is thrown as a Failure.
SettingsContent ReadSettingsArgument(const std::string& fileName);

/// Writes a settings file in the place of whatever was there; throws a Failure when it cannot.
void WriteSettingsArgument(const std::string& fileName, const SettingsContent& content);

}  // namespace zorva
