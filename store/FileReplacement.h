#pragma once

#include <filesystem>
#include <string_view>

#include "store/FileError.h"
#include "store/SystemFile.h"

namespace zorva {

/// Replaces a file whole, or creates it: the bytes are written to a file beside it, which then takes
/// its name. Whoever reads, or starts after a kill, finds the old file or the new one, never a part.
/// When it fails the old file is untouched and nothing is left beside it.
FileError ReplaceFile(const std::filesystem::path& file, std::string_view bytes, Durability durability);

/// Gives a file a name that says that it is damaged and that no file has yet: NAME-1.MAL, NAME-2.MAL
/// and so on. Returns the new path, empty when the file could not be renamed.
std::filesystem::path SetAside(const std::filesystem::path& file);

}  // namespace zorva
