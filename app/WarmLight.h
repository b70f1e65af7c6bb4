#pragma once

#include <QPixmap>

class QPainter;
class QRectF;

namespace zorva {

/// What is drawn, in the warm light that falls on everything that a click acts on while the cursor is
/// over it: the light of the lamp over the house on turn. Where the pixmap is transparent it stays so.
QPixmap WarmLit(const QPixmap& drawn);

/// The same light where it falls on paper or ivory.
void WarmTint(QPainter& painter, const QRectF& area);

}  // namespace zorva
