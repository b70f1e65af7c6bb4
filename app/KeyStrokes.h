#pragma once

class QKeyEvent;

namespace zorva {

/// Whether a key event is a press of a key to the program: a modifier, lock, media or volume key
/// alone is none, nor is the automatic repeat of a key that is held.
bool IsKeyStroke(const QKeyEvent& event);

/// Whether the key produces a character, or is Escape or Enter: the keys that throw and accept.
bool IsPlainKey(const QKeyEvent& event);

}  // namespace zorva
