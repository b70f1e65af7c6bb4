#pragma once

#include <QPointF>
#include <QString>
#include <algorithm>
#include <vector>

#include "app/Sentences.h"
#include "core/GameState.h"

namespace zorva {

/// What is on the screen but not in GameState: where a moving piece is, how a die lies, what is marked.
/// None of it is saved; a new view can be built from the game at any time.
/// Tables by piece are indexed by piece code.
struct BoardView {
    static constexpr int CodeCount = 45;  ///< piece codes go up to 44
    static constexpr Colour NewGameSign = ColourCount + 1;

    /// One of the bits of paper that make up the confetti.
    struct Flake {
        QPointF at;          ///< its middle, in layout pixels
        double turn = 0;     ///< degrees
        double width = 1;    ///< what is seen of its width while it tumbles, -1..1: below 0 its back
        double opacity = 1;  ///< it fades at the end
    };

    /// How a die lies in its tray.
    struct DiePose {
        double tilt = 0;  ///< degrees; 0 when it has come to rest
        double size = 1;  ///< scale factor; above 1 while the die is in the air
        QPointF beside;   ///< offset from the centre of the tray, in tray widths
    };

    /// What lies in a colour's tray: a die, a token or nothing.
    struct Tray {
        Short face = 0;       ///< 1..6 of the die; 0 without one
        Short bonus = 0;      ///< 10 or 20 squares that a token gives; 0 without one
        bool winner = false;  ///< the medal of the colour that has won lies there, within a laurel
        bool ready = false;   ///< the die waits to be thrown: it stands on a corner
        bool isNews = false;  ///< a throw or a bonus: everybody is to see it before it goes
        DiePose pose{};
        double opacity = 1;  ///< below 1 while it fades
    };

    /// A ring of light that spreads where a piece was captured, came home or won.
    struct Pulse {
        QPointF at;
        double reach = 0;     ///< the radius at its end, in layout pixels; 0 when there is none
        double progress = 0;  ///< 0..1
    };

    /// The confetti that bursts from the winner's tray and falls over the board.
    struct Confetti {
        Colour winner = 0;
        std::vector<Flake> flakes;  ///< none when there is no confetti
    };

    /// A move that is shown: advised to a person or about to be made.
    struct ShownMove {
        PieceCode piece = 0;  ///< 0 when none is shown
        Square from = 0;
        Square to = 0;
        QPointF place{};  ///< where it ends, in layout pixels
    };

    /// The last move made. Quiet marks stay on it until the next one begins.
    struct LastMove {
        PieceCode piece = 0;  ///< 0 when none is marked
        Square from = 0;
        Square to = 0;
        PieceCode captured = 0;  ///< the piece that it has sent home, 0 for none
        bool walked = false;     ///< from square to square, not shifted by hand or sent back
        PieceCode before = 0;    ///< the piece that came out first with the same five, 0 for none
        bool operator==(const LastMove&) const = default;
    };

    /// What a player's card tells.
    struct Card {
        Colour colour = 0;
        QString name;
        QString kind;  ///< a person, or the computer and its level
        QString last;  ///< what it did last, or how the game has ended for it
        Short home = 0;
        Short toGo = 0;  ///< squares
        bool lit = false;
        bool won = false;
        QString chance{};  ///< how often it would win; usually empty
        Short die = 0;     ///< 1..6 of its last throw; 0 without one
        bool operator==(const Card&) const = default;
    };

    std::array<bool, CodeCount> present{};   ///< pieces that have been put on the board
    std::array<QPointF, CodeCount> at{};     ///< centres, in layout pixels
    std::array<double, CodeCount> height{};  ///< above the board, in layout pixels
    PieceCode inAir = 0;                     ///< the piece that moves; drawn above all others
    Short counted = 0;                       ///< squares it has walked, written beside it; 0 writes none

    PerColour<Tray> tray{};

    Pulse pulse;
    Confetti confetti;
    Colour onTurn = 0;  ///< whose house is lit
    ShownMove shown;
    ShownMove preview;               ///< where the piece under the cursor would go
    std::vector<ShownMove> choices;  ///< where each piece would go that a person may pick now
    PieceCode marked = 0;            ///< the one marked by the keyboard

    bool IsMovable(PieceCode piece) const {
        return std::any_of(choices.begin(), choices.end(),
                           [piece](const ShownMove& move) { return move.piece == piece; });
    }

    Short tape = -1;  ///< the move at which the recorder stands, -1 while it is off
    Prompt line;      ///< what the game waits for
    QString latest;   ///< what was done last, under the line where there are no cards
    std::vector<Card> cards;
    LastMove lastMove;
    /// Whose die a hand points at, because a click throws it. NewGameSign: no game runs, and the button
    /// that begins one is framed and glows.
    Colour sign = 0;
    bool cupLit = false;  ///< the cursor is over the cup, and a click throws
    double tapping = 1;   ///< how far the movement of the hand or the glow has got, 0..1
};

}  // namespace zorva
