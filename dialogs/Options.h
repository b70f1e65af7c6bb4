#pragma once

#include <QString>

#include "app/Layout.h"
#include "core/Settings.h"

namespace zorva {

/// The options with two answers. Their numbers are the rows of the tables of questions and answers.
enum class Option : Short {
    PauseBetweenMoves = 1,
    Tutor,
    PlayOrder,
    Sound,
    RuleSixAllOut,
    PlayerType,
    PlayerState,
    ButtonInfo,
    RuleLeaveAllInBox,
    RuleFiveAllInBox,
    RuleFiveSomeInBox,
};
inline constexpr Option LastOption = Option::RuleFiveSomeInBox;

/// The question or the name of an option, as its page shows it.
QString QuestionText(Option option);

/// The first (1) or the second (2) answer to an option. Any other value is fatal.
QString AnswerText(Option option, Short value);

/// The field of the settings that holds the answer, 1 or 2. `player` matters only to PlayerType and
/// PlayerState, which each player has.
Short& OptionField(Settings& settings, Option option, Colour player);
Short OptionField(const Settings& settings, Option option, Colour player);

/// Where an option is on its page, in layout pixels of the window. It is drawn, and clicks on it are
/// found, by these boxes alone.
struct OptionPlace {
    Option option;
    Colour player = 0;  ///< 0 when the option is common to all
    Point at;           ///< the corner from which all boxes are measured
    Short width = 0;    ///< of question and answer

    /// The selector. A click on it, and nowhere else, flips the option.
    Box Selector() const { return {ToShort(at.x + 4), ToShort(at.y + 11), 30, 21}; }
    // The question above the selector and the answer beside it.
    Box Question() const { return {at.x, ToShort(at.y - 8), width, 17}; }
    Box Answer() const { return {ToShort(at.x + 41), ToShort(at.y + 11), ToShort(width - 41), 21}; }
    /// All of it.
    Box Whole() const { return {at.x, ToShort(at.y - 8), width, 44}; }
};

}  // namespace zorva
