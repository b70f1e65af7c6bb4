// Any bytes as the settings file: refused with a number, or a game that can be played, taken back,
// written and read again as the same.

#include <cstring>
#include <functional>

#include "engine/Chance.h"
#include "store/SettingsFile.h"
#include "tests/fuzz/Checks.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t room);

namespace {

using namespace zorva;

// A file is nearly all digits and blanks: changing one into another keeps its form, which the
// fuzzer's own changes mostly break.
void ChangeDigits(std::uint8_t* data, std::size_t size, Chance& chance) {
    for (std::uint32_t times = 1 + chance.Below(4), tries = 0; times > 0 && tries < 1000; ++tries) {
        std::uint8_t& byte = data[(chance.Next() >> 1) % size];
        if (std::strchr(" -0123456789", byte) == nullptr || byte == 0) continue;
        byte = static_cast<std::uint8_t>(" 0123456789"[chance.Below(11)]);
        --times;
    }
}

}  // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t room,
                                               unsigned seed) {
    Chance chance(seed);
    if (size == 0 || chance.Below(2) == 0) return LLVMFuzzerMutate(data, size, room);
    ChangeDigits(data, size, chance);
    return size;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes = fuzz::AsBytes(data, size);
    const SettingsReading reading = ReadSettings(bytes);
    if (const auto* error = std::get_if<FileError>(&reading)) {
        Require(*error != FileError::None, "refused without a reason");
        return 0;
    }
    SettingsContent content = std::get<SettingsContent>(reading);
    fuzz::RequireSoundTables(content.state);
    content.state.RepeatTurn = Yes;  // it is always written so
    const std::string text = SettingsText(content.settings, content.state);
    const SettingsReading again = ReadSettings(text);
    const auto* same = std::get_if<SettingsContent>(&again);
    Require(same != nullptr && *same == content, "written and read it is another");
    Require(SettingsText(same->settings, same->state) == text, "written twice it differs");
    if (!content.state.GameInProgress) return 0;
    fuzz::RequireWayBack(content.state);
    fuzz::RequireGoingOn(content.state, content.settings, std::hash<std::string_view>{}(bytes));
    return 0;
}
