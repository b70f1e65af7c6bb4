#pragma once

#include <QString>

namespace zorva {

class Mesa;

/// Makes the board window readable and playable for screen readers: besides the window's controls they
/// find the dice, the pieces and the squares as parts with names, of which dice and pieces can be
/// pressed, and a line that says what happens. Must be called once, before the board window is made.
void InstallBoardAccessibility();

/// Makes `text` the line that says what happens, and announces it to screen readers when one listens.
void Announce(Mesa& mesa, const QString& text);

}  // namespace zorva
