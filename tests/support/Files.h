#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace zorva::test {

/// All bytes of a file; empty when it cannot be read.
inline std::string FileBytes(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline void WriteBytes(const std::filesystem::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary | std::ios::trunc) << bytes;
}

/// An empty folder of a test's own, removed with everything in it at the end.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::random_device chance;
        do {
            const std::string name = "zorva-test-" + std::to_string(chance());
            path_ = std::filesystem::temp_directory_path() / name;
        } while (!std::filesystem::create_directory(path_));
    }
    ~TemporaryFolder() { std::filesystem::remove_all(path_); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

private:
    std::filesystem::path path_;
};

/// A folder with room for the name ZORVA32.INI, but not for ZORVA32-1.MAL: a path ends at 4,095 bytes.
inline std::filesystem::path FolderWithRoomForShortNames(const TemporaryFolder& folder) {
    std::filesystem::path deep = folder / "";
    while (deep.native().size() < 3900) deep /= std::string(99, 'd');
    deep /= std::string(4082 - deep.native().size(), 'd');
    std::filesystem::create_directories(deep);
    return deep;
}

}  // namespace zorva::test
