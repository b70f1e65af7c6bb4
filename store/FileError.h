#pragma once

#include <string>

#include "core/Types.h"

namespace zorva {

/// What can be wrong with a file, by the numbers that a player is told.
enum class FileError : Short {
    None = 0,
    Overflow = 6,  ///< a number that 16 bits cannot hold
    OutOfMemory = 7,
    OutOfRange = 9,     ///< a number that cannot be meant, or data that contradict each other
    TypeMismatch = 13,  ///< something else where a number or a text should stand
    FileNotFound = 53,
    DeviceError = 57,
    DiskFull = 61,
    PastTheEnd = 62,  ///< the file ends too early
    DriveNotReady = 68,
    PermissionDenied = 70,
    PathAccess = 75,  ///< the path leads to something that is no file, or cannot be used
    PathNotFound = 76,
};

}  // namespace zorva
