#pragma once

#include <QPixmap>
#include <QRectF>

#include "app/Palette.h"
#include "app/Services.h"

class QPainter;

namespace zorva::decoration {

// The look that all windows share: a walnut panel with a brass inlay and sheets of cream paper set into
// it, lit from the top left. All measures are layout pixels, unless a comment says otherwise, and all
// painters count in them.

/// The wood of a window of that size. The pixmap has as many device pixels as the window, so that it is
/// copied to the screen and never stretched.
QPixmap PanelWood(QSizeF size, const Services& services);

/// Draws the ground of a window: the wood, its bevelled edge and the inlay. `area` is the whole window.
void DrawPanel(QPainter& painter, const QRectF& area, const Services& services);

/// Draws a sheet of paper sunk into the panel. The lines of its frame lie just outside the area.
void DrawSunkenPaper(QPainter& painter, const QRectF& area, const QColor& paper = palette::Paper);

/// Draws the shadow that the upper and the left edge of a sunken area throw into it: 4 pixels deep from
/// above, 3 from the left.
void DrawInnerShadow(QPainter& painter, const QRectF& area);

/// Draws the lines, one pixel wide and just outside the area, that make it look set into the panel: grey
/// above and on the left, light below and on the right.
void DrawSunkenFrame(QPainter& painter, const QRectF& area);

/// Draws a drawing of the program in warm light: the cursor is over it, and a click acts on it.
void DrawWarmLit(QPainter& painter, const QString& drawing, const QRectF& area,
                 const Services& services);

/// Draws a drawing of the program and keeps its pixmap: for what is drawn again and again.
void DrawPixmap(QPainter& painter, const QString& name, const QRectF& area, const Services& services);

/// Draws the mark of the control that has the focus: a lit line round the area, its corners rounded by
/// that radius.
void DrawFocus(QPainter& painter, const QRectF& area, double radius);

}  // namespace zorva::decoration
