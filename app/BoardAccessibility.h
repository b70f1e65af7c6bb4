#pragma once

#include <QString>

namespace zorva {

class Mesa;

/// Makes the board window readable and playable for screen readers: besides its controls it shows
/// them the dice, the pieces, the squares and a line that says what happens. Has to be called once,
/// before the board window is made.
void InstallBoardAccessibility();

/// Says something to whoever listens: what was thrown, moved, or whose turn it is.
void Announce(Mesa& mesa, const QString& text);

}  // namespace zorva
