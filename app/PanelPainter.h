#pragma once

#include <QRect>

class QPainter;

namespace zorva {

class Artwork;
struct Layout;

/// Paints what lies under the buttons, the recorder and the log: a band of leather let into the table
/// right of the board, and on it the case of the recorder, out of which the log's paper comes. The
/// canvas belongs to a picture of the whole window in device pixels.
void PaintInstrumentPanel(QPainter& painter, Artwork& artwork, const Layout& layout);

/// Device pixels of the window below which nothing is seen of what lies under the band.
QRect HiddenByPanel(const Layout& layout);

}  // namespace zorva
