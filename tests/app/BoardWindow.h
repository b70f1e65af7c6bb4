#pragma once

#include <vector>

#include "app/BoardHits.h"
#include "app/Mesa.h"
#include "app/PiecePlaces.h"
#include "tests/support/Positions.h"

namespace zorva::test {

/// A board window on a screen that nobody sees. At 1024x768 a pixel of the layout is a device pixel.
struct BoardWindow {
    explicit BoardWindow(const char* position = "", QSize size = {1024, 768})
        : state(Position(position)) {
        mesa.Shared().PlaySound = [this](Sound sound) { sounds.push_back(sound); };
        mesa.resize(size);
        mesa.show();
        for (Colour colour = 1; colour <= ColourCount; ++colour) {
            for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
                mesa.Scene().PutDown(CodeOf(colour, piece));
            }
        }
    }

    const BoardView& View() { return mesa.Scene().View(); }
    Point PlaceOf(PieceCode code) { return PlaceOfPiece(layout, state, code); }
    Point PlaceOfSquare(Square square) const { return layout.SquarePosition(square); }

    GameState state;
    Settings settings;
    std::vector<Sound> sounds;
    Mesa mesa{state, settings};
    const Layout& layout = mesa.Shared().layout;
};

}  // namespace zorva::test
