#pragma once

class QKeyEvent;

namespace zorva {

/// Whether a key event counts as a press for the program. A modifier, lock, media or volume key alone
/// does not, nor does the automatic repeat of a held key: a throw must not follow from holding a key.
bool IsKeyStroke(const QKeyEvent& event);

/// Whether the key produces a character, or is Escape or Enter: these keys throw the die and accept the
/// advised move.
bool IsPlainKey(const QKeyEvent& event);

}  // namespace zorva
