#include "core/Settings.h"

#include <algorithm>

namespace zorva {

bool IsTakingPart(const Settings& settings, Colour colour) {
    if (settings.PlayerActive[colour] != 2) return true;
    return std::all_of(settings.PlayerActive.begin() + 1, settings.PlayerActive.end(),
                       [](Short active) { return active == 2; });
}

std::vector<Colour> ColoursTakingPart(const Settings& settings) {
    std::vector<Colour> colours;
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        if (IsTakingPart(settings, colour)) colours.push_back(colour);
    }
    return colours;
}

Short PlayDirectionOf(const Settings& settings) {
    return settings.PlayOrder == 1 ? -1 : 1;
}

Short SixValueOf(const Settings& settings) {
    return settings.RuleSixAllOut == 2 ? 12 : 7;
}

const std::string& DefaultName(Colour colour) {
    static const Settings defaults;
    return defaults.PlayerName[colour];
}

std::string Trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace zorva
