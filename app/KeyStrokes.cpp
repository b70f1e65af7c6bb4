#include "app/KeyStrokes.h"

#include <QKeyEvent>

namespace zorva {
namespace {

// Ranges of Qt::Key: shift to scroll lock, super and hyper with the menu key between them, and the keys
// of input methods.
bool IsModifierOrLock(int key) {
    return (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || key == Qt::Key_AltGr ||
           (key >= Qt::Key_Super_L && key <= Qt::Key_Hyper_R && key != Qt::Key_Menu) ||
           key == Qt::Key_Mode_switch || (key >= Qt::Key_Multi_key && key <= Qt::Key_PreviousCandidate);
}

// Brightness, volume, media, launchers, power: keys of the machine, not of a program.
bool IsMachineKey(int key) {
    return key == 0 || key == Qt::Key_unknown || (key >= Qt::Key_Back && key < Qt::Key_AltGr) ||
           key == Qt::Key_Sleep;
}

}  // namespace

bool IsKeyStroke(const QKeyEvent& event) {
    return !event.isAutoRepeat() && !IsModifierOrLock(event.key()) && !IsMachineKey(event.key());
}

bool IsPlainKey(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Escape || event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) {
        return true;
    }
    const QString text = event.text();
    return !text.isEmpty() && text.at(0).isPrint();
}

}  // namespace zorva
