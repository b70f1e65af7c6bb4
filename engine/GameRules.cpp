#include "engine/GameRules.h"

namespace zorva::engine {
namespace {

Seat NextTakingPart(const Settings& settings, Seat seat) {
    const unsigned turns = PlayDirectionOf(settings) > 0 ? 1 : SeatCount - 1;
    do {
        seat = SeatAfter(seat, turns);
    } while (!IsTakingPart(settings, ColourAt(seat)));
    return seat;
}

}  // namespace

GameRules::GameRules(const Settings& settings)
    : sixValue(static_cast<unsigned>(SixValueOf(settings))),
      countsFromFirstThrow(settings.RuleLeaveAllInBox == 1),
      fiveBringsTwo(settings.RuleFiveAllInBox == 1),
      fiveMustLeave(settings.RuleFiveSomeInBox == 1) {
    for (Seat seat = 0; seat < SeatCount; ++seat) {
        level[seat] = settings.PlayerLevel[ColourAt(seat)];
        next[seat] = NextTakingPart(settings, seat);
    }
}

Settings WithLevelsOfPersons(Settings settings) {
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        if (settings.PlayerType[colour] == 2) settings.PlayerLevel[colour] = LevelOfPersons;
    }
    return settings;
}

}  // namespace zorva::engine
