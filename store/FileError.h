#pragma once

#include <string>
#include <system_error>

#include "core/Types.h"

namespace zorva {

/// What can be wrong with a file. The values are the error numbers in the messages to the player.
enum class FileError : Short {
    None = 0,
    Overflow = 6,  ///< a number that 16 bits cannot hold
    OutOfMemory = 7,
    OutOfRange = 9,     ///< a number outside its range, or data that contradict each other
    TypeMismatch = 13,  ///< no number where one is due, or no text
    DeviceError = 57,   ///< the device failed; also every error without a number of its own
    DiskFull = 61,      ///< also: the user's quota is used up, or the file would be too large
    PastTheEnd = 62,    ///< the file ends too early
    DriveNotReady = 68,
    PermissionDenied = 70,
    PathAccess = 75,    ///< the path leads to something other than a regular file
    PathNotFound = 76,  ///< the file or its folder does not exist
};

/// Translates an error of the operating system. No error is None, an unknown one is DeviceError.
FileError FileErrorOf(const std::error_code& error);

/// The title of all messages about reading the settings file, or creating it.
inline constexpr const char* LoadErrorTitle = "Error en la carga de datos iniciales";

/// The message when the settings file could not be read. `drive` names the folder in which it lies.
std::string LoadErrorText(FileError error, const std::string& drive);

/// The title of all messages about a file that could not be written.
inline constexpr const char* SaveErrorTitle = "No se puede guardar";

/// The message when `fileName` could not be written: one sentence, with the reason.
std::string SaveErrorText(FileError error, const std::string& fileName);

}  // namespace zorva
