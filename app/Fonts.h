#pragma once

#include <QFont>

namespace zorva {

/// The font of what a player reads: Lato, or DejaVu Sans where that is not installed. The size is
/// in pixels of the surface that is painted on, rounded and at least 1. Letters are not hinted, so that
/// a text is as wide on every screen as the layout expects.
QFont TextFont(double pixelSize, QFont::Weight weight = QFont::Normal);

/// Texts that need room are set smaller, but not below this, in device pixels.
inline constexpr int SmallestFont = 9;

/// The bold font of names and headlines, in keeping with the figures on the board: Vollkorn, or the font
/// of all else where that is not installed.
/// Its figures hang below the line and its 1 looks like an I: for a text with figures, too, the font of
/// all else.
QFont DisplayFont(double pixelSize, const QString& text);

}  // namespace zorva
