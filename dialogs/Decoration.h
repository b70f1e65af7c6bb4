#pragma once

#include <QPixmap>
#include <QRectF>

#include "app/Palette.h"
#include "app/Services.h"

class QPainter;

namespace zorva::decoration {

// The look that all windows share: a walnut panel with a brass inlay, sheets of cream paper set into
// it, light from the top left. All measures are pixels of the layout.

/// The wood of a window of that size, in device pixels.
QPixmap PanelWood(QSizeF size, const Services& services);

/// The ground of a window, over its whole area.
void DrawPanel(QPainter& painter, const QRectF& area, const Services& services);

/// A sheet of paper sunk into the panel; the lines of its frame lie just outside the area.
void DrawSunkenPaper(QPainter& painter, const QRectF& area, const QColor& paper = palette::Paper);

/// The shadow that the edges above and on the left throw on what lies in an area.
void DrawInnerShadow(QPainter& painter, const QRectF& area);

/// The lines that make an area look set into the panel, just outside its edges.
void DrawSunkenFrame(QPainter& painter, const QRectF& area);

/// The mark of what the keyboard acts on, around the area.
void DrawFocus(QPainter& painter, const QRectF& area, double radius);

}  // namespace zorva::decoration
