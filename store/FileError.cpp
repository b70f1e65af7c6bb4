#include "store/FileError.h"

namespace zorva {
namespace {

bool IsOneOf(const std::error_code& error, std::initializer_list<std::errc> conditions) {
    for (const std::errc condition : conditions) {
        if (error == condition) return true;
    }
    return false;
}

std::string NumberOf(FileError error) {
    return std::to_string(static_cast<Short>(error));
}

// The part of the message after the colon: "No se puede escribir el fichero ZORVA32.INI: ...".
const char* ReasonText(FileError error) {
    switch (error) {
        case FileError::DiskFull: return "el disco está lleno";
        case FileError::PermissionDenied: return "no hay permiso para escribir en la carpeta";
        case FileError::PathAccess: return "en su lugar hay algo que no es un fichero";
        case FileError::PathNotFound: return "no existe la carpeta";
        case FileError::DriveNotReady: return "la unidad no está preparada";
        case FileError::OutOfMemory: return "no hay memoria suficiente";
        default: return "el disco da un error";
    }
}

}  // namespace

FileError FileErrorOf(const std::error_code& error) {
    using std::errc;
    // Compared with the portable conditions, so that errno values and Windows error codes both match.
    if (!error) return FileError::None;
    if (error == errc::not_enough_memory) return FileError::OutOfMemory;
    if (IsOneOf(error, {errc::no_space_on_device, errc::file_too_large})) return FileError::DiskFull;
    if (IsOneOf(error, {errc::no_such_device, errc::no_such_device_or_address})) {
        return FileError::DriveNotReady;
    }
    if (IsOneOf(error,
                {errc::permission_denied, errc::operation_not_permitted, errc::read_only_file_system})) {
        return FileError::PermissionDenied;
    }
    if (IsOneOf(error, {errc::no_such_file_or_directory, errc::not_a_directory})) {
        return FileError::PathNotFound;
    }
    // Here the path itself is the obstacle: something else has that name, or the name cannot be used.
    if (IsOneOf(error, {errc::is_a_directory, errc::file_exists, errc::directory_not_empty,
                        errc::too_many_symbolic_link_levels, errc::filename_too_long,
                        errc::invalid_argument, errc::text_file_busy})) {
        return FileError::PathAccess;
    }
    return FileError::DeviceError;
}

std::string LoadErrorText(FileError error, const std::string& drive) {
    // The blank before the colon of error 7 belongs to the text.
    switch (error) {
        case FileError::DriveNotReady: return "CID ERROR 68: Unidad " + drive + ": no preparada";
        case FileError::PathNotFound:
            return "CID ERROR 76: No existe el fichero de inicialización ZORVA32.INI";
        case FileError::OutOfMemory: return "CID ERROR 7 : Insuficiente memoria";
        default: return "CID ERROR " + NumberOf(error);
    }
}

std::string SaveErrorText(FileError error, const std::string& fileName) {
    return "No se puede escribir el fichero " + fileName + ": " + ReasonText(error) + " (error " +
           NumberOf(error) + ").";
}

}  // namespace zorva
