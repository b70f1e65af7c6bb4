#include "store/FileReplacement.h"

namespace zorva {
namespace {

constexpr int mostKeptFiles = 9999;

// Always the same name: a file that a killed run left behind is overwritten by the next run, so that
// such files never pile up.
std::filesystem::path TemporaryBeside(const std::filesystem::path& file) {
    std::filesystem::path beside = file;
    return beside.replace_extension(".TMP");
}

void RemoveQuietly(const std::filesystem::path& file) {
    std::error_code ignored;
    std::filesystem::remove(file, ignored);
}

// Replaces the file `to` in one step, on Windows too. There it fails while another program has the file
// open and does not share it for deletion; the old file then stays.
FileError RenameOver(const std::filesystem::path& from, const std::filesystem::path& to) {
    std::error_code error;
    std::filesystem::rename(from, to, error);
    return FileErrorOf(error);
}

}  // namespace

bool IsTaken(const std::filesystem::path& path) {
    std::error_code ignored;
    return std::filesystem::exists(std::filesystem::symlink_status(path, ignored));
}

FileError ReplaceFile(const std::filesystem::path& file, std::string_view bytes, Durability durability) {
    const std::filesystem::path beside = TemporaryBeside(file);
    // WriteNewFile refuses a name that is taken, so that it never writes through a link.
    RemoveQuietly(beside);
    FileError error = WriteNewFile(beside, bytes, durability, file);
    if (error != FileError::None) return error;
    error = RenameOver(beside, file);
    if (error != FileError::None) {
        RemoveQuietly(beside);
    } else if (durability == Durability::Flushed) {
        FlushFolder(file.parent_path());  // without it a power cut could undo the renaming
    }
    return error;
}

FileError SetAside(const std::filesystem::path& file, std::filesystem::path& keptAs) {
    keptAs.clear();
    for (int number = 1; number <= mostKeptFiles; ++number) {
        const std::string name = file.stem().string() + "-" + std::to_string(number) + ".MAL";
        const std::filesystem::path aside = file.parent_path() / name;
        if (IsTaken(aside)) continue;
        const FileError error = RenameToFreeName(file, aside);
        if (error == FileError::None) keptAs = aside;
        return error;
    }
    return FileError::PathAccess;
}

}  // namespace zorva
