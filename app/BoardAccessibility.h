#pragma once

#include <QString>

namespace zorva {

class Mesa;

/// Makes the board window readable and playable for screen readers: besides the window's controls they
/// find the dice, the pieces and the squares as parts with names, of which dice and pieces can be
/// pressed. Must be called once, before the board window is made.
void InstallBoardAccessibility();

/// Hands a sentence to the screen reader, which speaks it after what it speaks now. Nothing when none
/// listens. Up to 24 sentences may follow each other without a pause.
void Announce(Mesa& mesa, const QString& sentence);

}  // namespace zorva
