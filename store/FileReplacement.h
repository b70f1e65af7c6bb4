#pragma once

#include <filesystem>
#include <string_view>

#include "store/FileError.h"
#include "store/SystemFile.h"

namespace zorva {

/// Whether anything has that name. A link that leads nowhere also counts: renaming to its name would
/// replace the link. So does a pipe, which must not be opened to find out.
bool IsTaken(const std::filesystem::path& path);

/// Replaces the content of a file, or creates it: writes the bytes to a temporary file beside it
/// (NAME.TMP) and renames that one. Other programs, and the next start after a kill, see the complete
/// old file or the complete new one. If it fails, the old file is unchanged and the temporary file is
/// removed. The file keeps its permissions.
FileError ReplaceFile(const std::filesystem::path& file, std::string_view bytes, Durability durability);

/// Renames a damaged file to NAME-1.MAL or, if that name is taken, NAME-2.MAL and so on up to 9999.
/// Never replaces a file kept earlier. `keptAs` becomes the new path; on an error it becomes empty, and
/// the file still stands in its place.
FileError SetAside(const std::filesystem::path& file, std::filesystem::path& keptAs);

}  // namespace zorva
