// Any bytes as the file with the throws of a scripted game: refused in one line, or a game that can be
// written, read again and taken back.

#include <sys/mman.h>
#include <unistd.h>

#include <sstream>

#include "store/SettingsFile.h"
#include "tests/fuzz/Checks.h"
#include "tools/Failure.h"
#include "tools/ScriptedGame.h"

namespace {

using namespace zorva;

/// A file in memory alone, with a name under which it can be opened.
class MemoryFile {
public:
    MemoryFile() : descriptor_(memfd_create("throws", 0)) {
        Require(descriptor_ >= 0, "no file in memory");
    }
    std::string Name() const { return "/proc/self/fd/" + std::to_string(descriptor_); }
    void Hold(const std::uint8_t* data, std::size_t size) const {
        Require(ftruncate(descriptor_, 0) == 0 &&
                    pwrite(descriptor_, data, size, 0) == static_cast<ssize_t>(size),
                "the file in memory cannot be written");
    }

private:
    const int descriptor_;
};

void PlayAndKeep(const std::vector<Short>& throws) {
    SettingsContent content;
    // Both values of each rule, by what is thrown.
    const std::size_t kind = throws.size() + (throws.empty() ? 0 : static_cast<std::size_t>(throws[0]));
    content.settings.RuleSixAllOut = kind & 1 ? 1 : 2;
    content.settings.RuleLeaveAllInBox = kind & 2 ? 1 : 2;
    content.settings.RuleFiveAllInBox = kind & 4 ? 1 : 2;
    content.settings.RuleFiveSomeInBox = kind & 8 ? 1 : 2;
    ApplySettings(content.state, content.settings);
    std::ostringstream printed;
    PlayScriptedGame(content.state, content.settings, 1, throws, {true, true}, printed);
    fuzz::RequireSoundTables(content.state);
    if (!content.state.GameInProgress || content.state.MoveRecordCount < 2) return;
    const std::string text = SettingsText(content.settings, content.state);
    const SettingsReading reading = ReadSettings(text);
    const auto* loaded = std::get_if<SettingsContent>(&reading);
    Require(loaded != nullptr, "a game that was stopped cannot be read");
    Require(SettingsText(loaded->settings, loaded->state) == text, "written again it differs");
    fuzz::RequireWayBack(loaded->state);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const MemoryFile file;
    file.Hold(data, size);
    std::vector<Short> throws;
    try {
        throws = ReadThrows(file.Name());
    } catch (const Failure& failure) {
        Require(failure.what()[0] != '\0', "refused without a word");
        return 0;
    }
    for (const Short face : throws) Require(face >= 1 && face <= 6, "a throw that no die shows");
    PlayAndKeep(throws);
    return 0;
}
