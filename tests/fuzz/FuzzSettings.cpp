// Feeds any bytes to the reader of the settings file. It must refuse them with a number or return a game
// that can be played, taken back, written and read again.

#include <cstring>
#include <functional>

#include "engine/Chance.h"
#include "store/SettingsFile.h"
#include "tests/fuzz/Checks.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t room);

namespace {

using namespace zorva;

// A settings file consists mostly of digits and blanks. Exchanging one for another keeps its form, which
// the fuzzer's own changes mostly break.
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
        ReadSettingsAlone(bytes);
        return 0;
    }
    SettingsContent content = std::get<SettingsContent>(reading);
    Require(ReadSettingsAlone(bytes) == content.settings, "the settings alone are read otherwise");
    fuzz::RequireSoundTables(content.state);
    content.state.RepeatTurn = Yes;  // the file always says so
    Require(fuzz::RequireReadable(content) == content, "written and read it is another");
    if (content.state.GameInProgress) {
        fuzz::RequirePlayable(content, std::hash<std::string_view>{}(bytes));
    }
    return 0;
}
