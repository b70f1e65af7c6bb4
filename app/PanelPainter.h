#pragma once

#include <QRect>
#include <QSize>

class QPainter;

namespace zorva {

class Artwork;
struct Layout;

/// Paints what lies under the buttons, the recorder and the log: a pad of leather on the table right of
/// the board, and on it the case of the recorder, out of which the log's paper comes. Where there is
/// room it also paints a dice cup. The painter's pixels are the window's device pixels.
void PaintInstrumentPanel(QPainter& painter, Artwork& artwork, const Layout& layout);

/// The device pixels of a window of that size which it may touch.
QRect PanelArea(const Layout& layout, QSize devicePixels);

/// The device pixels of the window where the opaque middle of the pad hides the table.
QRect HiddenByPanel(const Layout& layout);

}  // namespace zorva
