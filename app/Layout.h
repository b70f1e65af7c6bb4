#pragma once

#include <array>

#include "core/Types.h"

namespace zorva {

/// A point in pixels of the layout.
struct Point {
    Short x = 0;
    Short y = 0;
    bool operator==(const Point&) const = default;
};

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

inline constexpr int MenuButtonCount = 6;

/// Where everything of the board window lies on one screen. All values are pixels of the layout
/// unless said otherwise; one such pixel is `Unit` device pixels, so that every screen is filled and
/// all is drawn at the device's resolution.
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
    Short Cell = 0;         ///< a square's length along the way: 21, 27 or 33
    Short Block = 0;        ///< a square's width across the way: 49, 63 or 77
    Short Margin = 0;       ///< left of and above the board; negative on a screen that is too low
    Short BoardExtent = 0;  ///< width of the board and its two margins
    Short PieceSize = 0;    ///< diameter of a piece
    Short BoxSide = 0;      ///< side of a corner box
    PerColour<Point> CornerBox{};

    Box Buttons;                              ///< Pic_Botones
    std::array<Box, MenuButtonCount> Button;  ///< Pic_Boton, in the order of the menu
    Box Recorder;                             ///< Pic_Grabadora
    Box Log;                                  ///< Lis_Grabadora
    Box LogPaper;  ///< the part of the log that lies on the screen and beside the board

    /// Centre of a piece that stands alone on a square 1..100 (the first slot of a goal).
    Point SquarePosition(Square square) const;
    /// Centre of a piece by its slot: 1..3 on a square, 1..4 on a goal.
    Point SlotPosition(Square square, Short slot) const;
    /// Centre of a piece in its waiting box.
    Point BoxPosition(Colour colour, Short piece) const;
    /// The tray in which a colour's die lies.
    Box DieBox(Colour colour) const;
    /// The plate in a colour's house that bears the player's name.
    Box NamePlate(Colour colour) const;
    /// The whole corner box of a colour.
    Box House(Colour colour) const;
};

/// The layout for a screen of that size in device pixels.
Layout LayoutFor(int deviceWidth, int deviceHeight);

}  // namespace zorva
