#pragma once

#include <QPointF>
#include <array>

#include "core/Types.h"

namespace zorva {

/// A point in pixels of the layout.
struct Point {
    Short x = 0;
    Short y = 0;
    bool operator==(const Point&) const = default;
};

/// The same point for Qt's functions.
inline QPointF AsPointF(Point p) {
    return {qreal(p.x), qreal(p.y)};
}

/// A rectangle in pixels of the layout; right and bottom edges are x + width and y + height.
struct Box {
    Short x = 0;
    Short y = 0;
    Short width = 0;
    Short height = 0;
    bool operator==(const Box&) const = default;
    bool Contains(Point p) const { return p.x >= x && p.x < x + width && p.y >= y && p.y < y + height; }
    Point Centre() const { return {ToShort(x + width / 2), ToShort(y + height / 2)}; }
};

/// The keys of the menu: help, new game, settings, history, advice and leave.
inline constexpr int MenuButtonCount = 6;
/// The keys of the recorder.
inline constexpr int RecorderKeyCount = 6;

/// Where everything of the board window lies on one screen. All values are layout pixels unless said
/// otherwise; one of them is `Unit` device pixels, so that every screen is filled and everything is
/// drawn at the device's resolution.
///
/// The board is a square of 9 blocks or 21 cells. Houses of 3 x 3 blocks are its corners; between them
/// lie the arms, each with three lanes that are one block wide. A square is one cell long.
struct Layout {
    // The part of the screen that is used, in device pixels: all of it, or its largest centred area
    // of 5:4 when the screen is narrower than that.
    int DeviceLeft = 0;
    int DeviceTop = 0;
    int DeviceWidth = 0;
    int DeviceHeight = 0;
    double Unit = 1;  ///< device pixels per pixel of the layout

    Short ScreenWidth = 0;
    Short ScreenHeight = 0;
    Short SizeClass = 0;    ///< 1 below 800 pixels of width, 2 at exactly 800, 3 above
    Short Cell = 0;         ///< a square's length along its lane: 21, 27 or 33
    Short Block = 0;        ///< a square's width across its lane: 49, 63 or 77
    Short Margin = 0;       ///< left of and above the board; negative on a screen that is too low
    Short BoardExtent = 0;  ///< width of the board and its two margins
    Short PieceSize = 0;    ///< diameter of a piece
    Short BoxSide = 0;      ///< side of a corner box
    PerColour<Point> CornerBox{};

    // The panel on which menu, recorder and log lie: a band from the upper to the lower edge.
    Short BandLeft = 0;
    Short BandWidth = 0;
    /// Height of the names below the panel's keys; 0 where there is no room for them.
    Short LabelHeight = 0;
    /// Where the game says what it waits for: at the head of the cards, else at the head of the panel.
    Box Line;
    /// The players' cards, one above or beside the other. On a screen without room for them their width
    /// is 0. Some may lie above or below the used part of the screen.
    std::array<Box, ColourCount> Card;
    bool HasCards() const { return Card[0].width != 0; }

    Box Buttons;                              ///< Pic_Botones
    std::array<Box, MenuButtonCount> Button;  ///< Pic_Boton, in the order of the menu
    Box Recorder;                             ///< Pic_Grabadora
    Box Case;                                 ///< holds the recorder and its reels
    Box Reel;                                 ///< the left one; the right one is a large key
    Box Chances;                              ///< the key of the chances, on the recorder's case
    Box Log;                                  ///< Lis_Grabadora
    Box LogPaper;  ///< what is seen of the log: the part beside the board and on the screen

    /// The recorder's large keys, in the order of RecorderKey: the switch is its right reel, the others
    /// are there while it is on. Where there is no room, widths are 0.
    std::array<Box, RecorderKeyCount> LargeKey;
    Box Cup;  ///< the dice cup with its shadow; where there is no room its width is 0

    /// A point of the layout in device pixels of the window.
    QPointF Device(QPointF at) const { return QPointF(DeviceLeft, DeviceTop) + at * Unit; }
    /// Centre of a piece that stands alone on a square 1..100 (the first slot of a goal).
    Point SquarePosition(Square square) const;
    /// Centre of a piece by its slot: 1..3 on a square, 1..4 on a goal. A square outside 1..100 is
    /// fatal, as it is for SquarePosition.
    Point SlotPosition(Square square, Short slot) const;
    /// Centre of a piece 1..4 that waits in its house, one above the other.
    Point BoxPosition(Colour colour, Short piece) const;
    /// The tray in which a colour's die lies.
    Box DieBox(Colour colour) const;
    /// The plate with the player's name in a colour's house.
    Box NamePlate(Colour colour) const;
    /// A colour's house: the whole corner box.
    Box House(Colour colour) const;
};

/// The layout for a screen of that size in device pixels. Works for any size; on very
/// small screens parts may overlap or lie off the screen.
Layout LayoutFor(int deviceWidth, int deviceHeight);

}  // namespace zorva
