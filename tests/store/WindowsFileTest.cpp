// What differs on Windows: names of folders, and files that other programs keep open.

#include <gtest/gtest.h>

#include <memory>

#include "store/FileReplacement.h"
#include "store/SystemFile.h"
#include "tests/support/Files.h"

// After our own headers: it defines macros with the names of functions.
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
#undef ReplaceFile

namespace zorva::test {
namespace {

/// Another program that keeps a file open.
struct Close {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using Holder = std::unique_ptr<void, Close>;

Holder Hold(const std::filesystem::path& file, DWORD sharing) {
    return Holder(CreateFileW(file.c_str(), GENERIC_READ, sharing, nullptr, OPEN_EXISTING, 0, nullptr));
}

class WindowsFileTest : public testing::Test {
protected:
    TemporaryFolder folder;
    const std::filesystem::path file = folder / "ZORVA32.INI";
};

TEST_F(WindowsFileTest, AFileThatAnotherProgramHoldsStaysWhole) {
    WriteBytes(file, "old");
    {
        const Holder other = Hold(file, FILE_SHARE_READ);
        EXPECT_EQ(ReplaceFile(file, "new", Durability::Lazy), FileError::PermissionDenied);
        EXPECT_EQ(FileBytes(file), "old");
        EXPECT_FALSE(std::filesystem::exists(folder / "ZORVA32.TMP"));
    }
    EXPECT_EQ(ReplaceFile(file, "new", Durability::Lazy), FileError::None) << "after it was closed";
    EXPECT_EQ(FileBytes(file), "new");
}

TEST_F(WindowsFileTest, EveryRefusalSaysWhy) {
    WriteBytes(file, "old");
    std::string bytes;
    EXPECT_EQ(ReadWholeFile(file, 2, bytes), FileError::OutOfRange);
    EXPECT_EQ(ReadWholeFile(folder / "NONE.INI", 10, bytes), FileError::PathNotFound);
    EXPECT_EQ(ReadWholeFile(file.parent_path(), 10, bytes), FileError::PathAccess) << "a folder";
    EXPECT_EQ(ReadWholeFile("NUL", 10, bytes), FileError::PathAccess) << "a device";
    EXPECT_EQ(WriteNewFile(file, "new", Durability::Lazy), FileError::PathAccess) << "it is there";
    EXPECT_EQ(RenameToFreeName(folder / "NONE.INI", folder / "X.INI"), FileError::PathNotFound);
    WriteBytes(folder / "TAKEN.INI", "other");
    EXPECT_EQ(RenameToFreeName(file, folder / "TAKEN.INI"), FileError::PathAccess);
    EXPECT_EQ(FileBytes(folder / "TAKEN.INI"), "other");
    const Holder other = Hold(file, 0);
    EXPECT_EQ(ReadWholeFile(file, 10, bytes), FileError::PermissionDenied) << "held by another program";
}

TEST_F(WindowsFileTest, AppendsInAFolderWithLettersOfEveryAlphabet) {
    const std::filesystem::path other = file.parent_path() / L"Ñandú 象";
    std::filesystem::create_directory(other);
    EXPECT_EQ(ReplaceFile(other / "ZORVA32.HIS", "x", Durability::Lazy), FileError::None);
    const auto size = [](std::size_t length) { return std::to_string(length); };
    EXPECT_EQ(AppendToFile(other / "ZORVA32.HIS", size), FileError::None);
    EXPECT_EQ(FileBytes(other / "ZORVA32.HIS"), "x1");
}

}  // namespace
}  // namespace zorva::test
