#pragma once

#include "core/Types.h"

namespace zorva {

/// The sounds of the game, named after what they announce. The numbers name the recordings
/// (assets/sounds/01.wav to 19.wav) and never change.
enum class Sound : Short {
    MenuKey = 1,         ///< a menu button is pressed
    PageOpens = 2,       ///< the manual opens or turns a page
    SettingsOpen = 3,    ///< the settings open
    Accept = 4,          ///< yes, or a window is closed
    DieReady = 5,        ///< the die is ready to be thrown
    Advice = 6,          ///< the advice key is pressed
    Box = 7,             ///< a piece is seated in its box at the start, or walks out of it
    Goal = 8,            ///< a piece walks onto its goal
    HistoryPage = 9,     ///< the history opens or turns a page
    Refusal = 10,        ///< the chosen move is not possible
    SentHome = 11,       ///< a piece goes back to its box: captured, or after a third six
    Decline = 12,        ///< no
    Step = 13,           ///< a piece steps onto the next square
    Victory = 14,        ///< a colour has won
    MoveByHand = 15,     ///< a piece is dragged or dropped by hand
    RecorderKey = 16,    ///< a key of the recorder goes down or up
    DieRattles = 17,     ///< the first and the third face of a throw
    DieBounces = 18,     ///< the fifth face
    DieComesToRest = 19  ///< the seventh face
};

inline constexpr Short FirstSound = 1;
inline constexpr Short LastSound = 19;

}  // namespace zorva
