#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "store/FileError.h"

namespace zorva {

/// Whether a write waits until the disk has the data, or leaves that to the system: fast, and safe
/// against a kill of the program, but not against a power cut.
enum class Durability { Lazy, Flushed };

// All that the standard library cannot do with files: errors that say why, writes that never follow
// a link, and waiting for the disk. Nothing else in the game calls the system for a file.

/// Reads a whole file, but no more than `limit` bytes: a longer one is out of range. What is no
/// regular file is refused unread, so that nothing can block.
FileError ReadWholeFile(const std::filesystem::path& file, std::size_t limit, std::string& bytes);

/// Creates a file that must not exist yet, a link of that name included, and writes it. Nothing of
/// it is left behind when that fails. The folder's permissions of new files apply.
FileError WriteNewFile(const std::filesystem::path& file, std::string_view bytes, Durability durability);

/// Writes behind the end of a file, which is created when it does not exist, and waits for the disk.
/// What is written may depend on the size that the file has.
FileError AppendToFile(const std::filesystem::path& file,
                       const std::function<std::string(std::size_t)>& bytesForSize);

/// Renames a file to a name that must be free.
FileError RenameToFreeName(const std::filesystem::path& from, const std::filesystem::path& to);

/// Waits until the disk has the names in the folder. Not every file system can: no error then.
void FlushFolder(const std::filesystem::path& folder);

}  // namespace zorva
