#pragma once

class QPainter;

namespace zorva {

struct Layout;

/// Paints the coloured squares and goals and all lines of the board, on the pixels that BoardGrid names.
/// The painter's pixels are the window's device pixels.
void PaintSquares(QPainter& painter, const Layout& layout);

}  // namespace zorva
