// Feeds any bytes to the reader of a scripted game's throws. It must refuse them or return throws whose
// game can be written, read again and taken back.

#include <sstream>

#include "store/SettingsFile.h"
#include "tests/fuzz/Checks.h"
#include "tools/Failure.h"
#include "tools/ScriptedGame.h"

namespace {

using namespace zorva;

void PlayAndKeep(const std::vector<Short>& throws) {
    SettingsContent content;
    // The input also chooses the rules, so that each has both values in some run.
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
    fuzz::RequireWayBack(fuzz::RequireReadable(content).state);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::istringstream file{std::string(fuzz::AsBytes(data, size))};
    std::vector<Short> throws;
    try {
        throws = ReadThrows(file, "throws");
    } catch (const Failure&) {
        return 0;
    }
    for (const Short face : throws) Require(face >= 1 && face <= 6, "a throw that no die shows");
    PlayAndKeep(throws);
    return 0;
}
