#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "store/FileError.h"

namespace zorva {

// What the standard library cannot do with files: errors that give their reason, writes that never
// follow a link, and waiting for the disk. PosixFile.cpp and WindowsFile.cpp implement these functions;
// no other file of the game calls the operating system for files. They fail by returning the error and
// throw only when memory runs out (std::bad_alloc).

/// Lazy: the system writes the data to the disk when it likes. That is fast, and the data survive a kill
/// of the program but not a power cut. Flushed: the call returns once the disk has the data.
enum class Durability { Lazy, Flushed };

/// Reads all of a file into `bytes`. Refuses a file of more than `limit` bytes (OutOfRange) and anything
/// but a regular file (PathAccess): reading a pipe, for example, could block. Links are followed.
FileError ReadWholeFile(const std::filesystem::path& file, std::size_t limit, std::string& bytes);

/// Creates a file and writes it. Refuses a name that exists already, even as a link (PathAccess). If
/// writing fails, the file is removed again. It gets the permissions of the file `like`, and its owner
/// where the system allows that; if there is no such file, 0666 less the user's mask.
FileError WriteNewFile(const std::filesystem::path& file, std::string_view bytes, Durability durability,
                       const std::filesystem::path& like = {});

/// Appends to a file, creating it if necessary, and does not wait for the disk. Calls `bytesForSize`
/// with the size of the file (in bytes) and appends the result. Refuses links and everything else that
/// is no regular file. After an error the file may have got a part of the bytes.
FileError AppendToFile(const std::filesystem::path& file,
                       const std::function<std::string(std::size_t)>& bytesForSize);

/// Renames a file. Refuses if the name `to` exists already (PathAccess); nothing is ever replaced.
FileError RenameToFreeName(const std::filesystem::path& from, const std::filesystem::path& to);

/// Waits until the disk has the file's data, and says if it could not take them. No error if the file
/// cannot be opened.
FileError FlushFile(const std::filesystem::path& file);

/// Waits until the disk has the folder's list of names, so that a renaming survives a power cut. Does
/// nothing, and reports nothing, where the file system cannot do that.
void FlushFolder(const std::filesystem::path& folder);

}  // namespace zorva
