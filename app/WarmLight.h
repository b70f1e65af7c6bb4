#pragma once

#include <QColor>
#include <QPixmap>

namespace zorva {

/// What is drawn, in the warm light that falls on everything that a click acts on while the cursor is
/// over it: the light of the lamp over the house on turn. Where the pixmap is transparent it stays so.
QPixmap WarmLit(const QPixmap& drawn);

/// The same light where it falls on paper or ivory.
QColor WarmTint();

}  // namespace zorva
