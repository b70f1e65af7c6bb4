#pragma once

#include <QFont>

namespace zorva {

/// The typeface of everything a player reads, in pixels of whatever is painted on.
QFont TextFont(double pixelSize, QFont::Weight weight = QFont::Normal);

/// Letters of equal width, for the columns of the move log.
QFont ColumnFont(double pixelSize);

/// Looks for them, which takes a hundredth of a second at the first text.
void PrepareFonts();

}  // namespace zorva
