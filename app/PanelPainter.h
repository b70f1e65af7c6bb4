#pragma once

#include <QRect>

class QPainter;

namespace zorva {

class Artwork;
struct Layout;

/// Paints what lies under the buttons, the recorder and the log: a band of leather let into the table
/// right of the board, and on it the case of the recorder, out of which the log's paper comes. A dice
/// cup stands beside it where there is room. The painter's pixels are the window's device pixels.
void PaintInstrumentPanel(QPainter& painter, Artwork& artwork, const Layout& layout);

/// The device pixels of the window where the opaque middle of the band hides the table.
QRect HiddenByPanel(const Layout& layout);

}  // namespace zorva
