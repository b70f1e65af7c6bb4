#pragma once

#include <QPointF>

#include "core/GameState.h"

namespace zorva {

/// What is to be seen on the board beyond the game's tables: a cache of the moment that can be
/// thrown away and drawn again at any time.
struct BoardView {
    static constexpr int CodeCount = 45;  ///< piece codes go up to 44

    /// A move that is shown: advised to a person or about to be made.
    struct ShownMove {
        PieceCode piece = 0;  ///< 0 when none is shown
        Square from = 0;
        Square to = 0;
    };

    std::array<bool, CodeCount> present{};  ///< pieces that have been put on the board
    std::array<QPointF, CodeCount> at{};    ///< centres, in pixels of the layout
    PieceCode inAir = 0;                    ///< the piece that moves; drawn above all others
    double lift = 0;                        ///< how high it is, in pixels of the layout

    PerColour<Short> dieFace{};   ///< 0 an empty tray
    PerColour<double> dieTilt{};  ///< degrees; 0 when the die has come to rest
    PerColour<bool> dieReady{};   ///< waits to be thrown
    Short bonusDue = 0;           ///< 20 or 10 squares the colour on turn walks next, else 0

    Colour onTurn = 0;  ///< whose house is lit
    Colour winner = 0;  ///< whose display blinks
    ShownMove shown;
    ShownMove preview;                      ///< where the piece under the pointer would go
    std::array<bool, CodeCount> movable{};  ///< pieces that a person may pick now
    PieceCode marked = 0;                   ///< the one marked by the keyboard
    bool manualMode = false;
};

}  // namespace zorva
