#include "store/FileReplacement.h"

namespace zorva {
namespace {

constexpr int mostKeptFiles = 9999;

// Always the same name, so that what a killed run left is used up by the next one.
std::filesystem::path TemporaryBeside(const std::filesystem::path& file) {
    std::filesystem::path beside = file;
    return beside.replace_extension(".TMP");
}

void RemoveQuietly(const std::filesystem::path& file) {
    std::error_code ignored;
    std::filesystem::remove(file, ignored);
}

// Replaces what has that name: in one step, also on Windows, where it fails as long as another program
// has that file open without letting it be replaced. The old file stays then.
FileError Rename(const std::filesystem::path& from, const std::filesystem::path& to) {
    std::error_code error;
    std::filesystem::rename(from, to, error);
    return FileErrorOf(error);
}

bool IsTaken(const std::filesystem::path& path) {
    std::error_code ignored;
    return std::filesystem::exists(std::filesystem::symlink_status(path, ignored));
}

}  // namespace

FileError ReplaceFile(const std::filesystem::path& file, std::string_view bytes, Durability durability) {
    const std::filesystem::path beside = TemporaryBeside(file);
    RemoveQuietly(beside);
    FileError error = WriteNewFile(beside, bytes, durability);
    if (error != FileError::None) return error;
    error = Rename(beside, file);
    if (error != FileError::None) {
        RemoveQuietly(beside);
    } else if (durability == Durability::Flushed) {
        FlushFolder(file.parent_path());
    }
    return error;
}

std::filesystem::path SetAside(const std::filesystem::path& file) {
    for (int number = 1; number <= mostKeptFiles; ++number) {
        const std::string name = file.stem().string() + "-" + std::to_string(number) + ".MAL";
        const std::filesystem::path aside = file.parent_path() / name;
        if (IsTaken(aside)) continue;
        return RenameToFreeName(file, aside) == FileError::None ? aside : std::filesystem::path{};
    }
    return {};
}

}  // namespace zorva
