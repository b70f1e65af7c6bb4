#pragma once

#include <QString>

#include "app/Layout.h"
#include "core/Settings.h"

namespace zorva {

/// The options with two answers, by the numbers that the table of answers goes by.
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

/// What an option asks.
QString QuestionText(Option option);

/// The first (1) or the second (2) answer to an option.
QString AnswerText(Option option, Short value);

/// Where the settings keep an option. `player` matters only to the options that each player has.
Short& OptionField(Settings& settings, Option option, Colour player);
Short OptionField(const Settings& settings, Option option, Colour player);

/// One option on its page. Everything is drawn and clicked by this place alone.
struct OptionPlace {
    Option option;
    Colour player = 0;  ///< 0 when the option is common to all
    Point at;           ///< corner from which the selector is measured
    Short width = 0;    ///< of question and answer, in pixels of the layout

    /// The selector: what must be clicked.
    Box Selector() const { return {ToShort(at.x + 4), ToShort(at.y + 11), 30, 21}; }
    /// The question above it and the answer beside it.
    Box Question() const { return {at.x, ToShort(at.y - 8), width, 17}; }
    Box Answer() const { return {ToShort(at.x + 41), ToShort(at.y + 11), ToShort(width - 41), 21}; }
    /// All of it.
    Box Whole() const { return {at.x, ToShort(at.y - 8), width, 44}; }
};

}  // namespace zorva
