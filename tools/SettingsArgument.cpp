#include "tools/SettingsArgument.h"

#include <fstream>
#include <sstream>

#include "tools/Failure.h"

namespace zorva {
namespace {

std::string ReadBytes(const std::string& fileName) {
    std::ifstream file(fileName, std::ios::binary);
    if (!file) throw Failure("cannot open " + fileName);
    std::ostringstream bytes;
    // Copying an empty file would set the failure flag of `bytes`. Let ReadSettings refuse it instead.
    if (file.peek() != std::ifstream::traits_type::eof()) bytes << file.rdbuf();
    if (file.bad() || bytes.bad()) throw Failure("cannot read " + fileName);
    return bytes.str();
}

// English, because the tool is for developers; the game's own messages give the error's number.
const char* Reason(FileError error) {
    switch (error) {
        case FileError::Overflow: return "a number is too large";
        case FileError::OutOfRange:
            return "a number is out of range, or the numbers contradict each other";
        case FileError::TypeMismatch:
            return "a number or a text is expected where something else stands";
        case FileError::PastTheEnd: return "it ends too early";
        default: return "it cannot be read";
    }
}

}  // namespace

SettingsContent ReadSettingsArgument(const std::string& fileName) {
    const SettingsReading reading = ReadSettings(ReadBytes(fileName));
    if (const auto* content = std::get_if<SettingsContent>(&reading)) return *content;
    throw Failure(fileName + " is no settings file: " + Reason(std::get<FileError>(reading)));
}

void WriteSettingsArgument(const std::string& fileName, const SettingsContent& content) {
    // In place and not by ReplaceFile: the argument may be a pipe or /dev/stdout. Binary, because the
    // text has its own line ends.
    std::ofstream file(fileName, std::ios::binary | std::ios::trunc);
    file << SettingsText(content.settings, content.state) << std::flush;
    if (!file) throw Failure("cannot write " + fileName);
}

}  // namespace zorva
