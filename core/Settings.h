#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "core/Types.h"

namespace zorva {

/// Characters of a player's name at most.
inline constexpr std::size_t LongestName = 9;

/// What the players have chosen. Two-valued fields hold 1 or 2, the first or the second answer.
struct Settings {
    /// Names in UTF-8, at most LongestName characters.
    PerColour<std::string> PlayerName{"", "Amarillo", "Azul", "Rojo", "Verde"};
    /// Strength of the computer player, 0..100.
    PerColour<Short> PlayerLevel{0, 50, 50, 50, 50};
    /// 1 the computer plays this colour ("Automático"), 2 a person does ("Manual").
    PerColour<Short> PlayerType{0, 1, 1, 1, 1};
    /// 1 the colour takes part ("Activado"), 2 it does not ("Desactivado").
    PerColour<Short> PlayerActive{0, 1, 1, 1, 1};

    Short PauseBetweenMoves = 1;  ///< 1 wait for a click before each throw, 2 throw at once
    Short Tutor = 1;              ///< 1 show a person the advised move, 2 do not
    Short PlayOrder = 2;          ///< 1 "Directo" (4, 3, 2, 1), 2 "Inverso" (1, 2, 3, 4)
    Short SoundOn = 1;            ///< 1 on, 2 off
    Short ButtonInfo = 1;         ///< 1 buttons explain themselves, 2 they do not
    Short RuleSixAllOut = 2;      ///< squares of a six with no piece in the box: 1 seven, 2 twelve
    /// With four pieces in the box: 1 any throw brings one out, which walks the thrown squares on from
    /// its exit; 2 a five is needed.
    Short RuleLeaveAllInBox = 1;
    /// A five with four pieces in the box, while RuleLeaveAllInBox is 1: 1 brings two pieces out; 2
    /// brings one out, which walks five squares on.
    Short RuleFiveAllInBox = 1;
    Short RuleFiveSomeInBox = 1;  ///< a five with a piece in the box: 1 must leave, 2 may leave
    Short Speed = 50;             ///< 0 (slow) .. 100 (no pauses at all)

    bool operator==(const Settings&) const = default;
};

/// Whether the colour takes part in games. If all four are switched off, as can happen for a moment
/// while the settings are chosen, all four take part: a game without players would never end.
bool IsTakingPart(const Settings& settings, Colour colour);
/// The colours that take part, by number.
std::vector<Colour> ColoursTakingPart(const Settings& settings);

/// -1 for "Directo" (colours follow 4, 3, 2, 1), +1 for "Inverso".
Short PlayDirectionOf(const Settings& settings);

/// Squares a six counts when no piece of the colour is in its box: 7 or 12.
Short SixValueOf(const Settings& settings);

/// The name given to a colour that has none: "Amarillo", "Azul", "Rojo", "Verde".
const std::string& DefaultName(Colour colour);

/// The text without the blanks at its two ends.
std::string Trimmed(const std::string& text);

}  // namespace zorva
