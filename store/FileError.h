#pragma once

#include <string>
#include <system_error>

#include "core/Types.h"

namespace zorva {

/// What can be wrong with a file, by the numbers that a player is told.
enum class FileError : Short {
    None = 0,
    Overflow = 6,  ///< a number that 16 bits cannot hold
    OutOfMemory = 7,
    OutOfRange = 9,     ///< a number that cannot be meant, or data that contradict each other
    TypeMismatch = 13,  ///< something else where a number or a text should stand
    DeviceError = 57,   ///< the device failed, and whatever has no number of its own
    DiskFull = 61,
    PastTheEnd = 62,  ///< the file ends too early
    DriveNotReady = 68,
    PermissionDenied = 70,
    PathAccess = 75,  ///< the path leads to something that is no file or cannot be used as one
    PathNotFound = 76,
};

/// The number that fits what the system reported; None for no error.
FileError FileErrorOf(const std::error_code& error);

/// The title of every message about the reading, or the creation, of the settings file.
inline constexpr const char* LoadErrorTitle = "Error en la carga de datos iniciales";

/// What the player is told when the settings file could not be read. `drive` is where it lies.
std::string LoadErrorText(FileError error, const std::string& drive);

/// The title of a message about something that could not be written.
inline constexpr const char* SaveErrorTitle = "No se puede guardar";

/// What the player is told when `fileName` could not be written: why, and that the game goes on.
std::string SaveErrorText(FileError error, const std::string& fileName);

}  // namespace zorva
