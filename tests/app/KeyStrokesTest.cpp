#include "app/KeyStrokes.h"

#include <gtest/gtest.h>

#include <QKeyEvent>

namespace zorva::test {
namespace {

struct KeyRow {
    const char* name;
    int key;
    const char* text;
    bool stroke;  ///< a press of a key to the program
    bool plain;   ///< one that throws and accepts
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
};

const KeyRow keys[] = {
    {"a letter", Qt::Key_A, "a", true, true},
    {"a capital", Qt::Key_A, "A", true, true, Qt::ShiftModifier},
    {"a letter of ours", Qt::Key_Ntilde, "ñ", true, true},
    {"a figure of the number pad", Qt::Key_7, "7", true, true, Qt::KeypadModifier},
    {"a character made with AltGr", Qt::Key_At, "@", true, true, Qt::GroupSwitchModifier},
    {"the space bar", Qt::Key_Space, " ", true, true},
    {"Enter", Qt::Key_Return, "\r", true, true},
    {"Enter of the number pad", Qt::Key_Enter, "\r", true, true, Qt::KeypadModifier},
    {"Escape", Qt::Key_Escape, "\x1b", true, true},
    {"the tabulator", Qt::Key_Tab, "\t", true, false},
    {"backspace", Qt::Key_Backspace, "\b", true, false},
    {"delete", Qt::Key_Delete, "\x7f", true, false},
    {"an arrow", Qt::Key_Left, "", true, false},
    {"Home", Qt::Key_Home, "", true, false},
    {"a page key", Qt::Key_PageDown, "", true, false},
    {"a function key", Qt::Key_F1, "", true, false},
    {"F4 with Alt", Qt::Key_F4, "", true, false, Qt::AltModifier},
    {"a letter with Ctrl", Qt::Key_A, "\x01", true, false, Qt::ControlModifier},
    {"an accent that waits for its letter", Qt::Key_Dead_Acute, "", true, false},
    {"Shift alone", Qt::Key_Shift, "", false, false},
    {"Ctrl alone", Qt::Key_Control, "", false, false},
    {"Alt alone", Qt::Key_Alt, "", false, false},
    {"AltGr alone", Qt::Key_AltGr, "", false, false},
    {"the system's key", Qt::Key_Meta, "", false, false},
    {"the same on the left", Qt::Key_Super_L, "", false, false},
    {"caps lock", Qt::Key_CapsLock, "", false, false},
    {"number lock", Qt::Key_NumLock, "", false, false},
    {"scroll lock", Qt::Key_ScrollLock, "", false, false},
    {"compose", Qt::Key_Multi_key, "", false, false},
    {"mode switch", Qt::Key_Mode_switch, "", false, false},
    {"volume up", Qt::Key_VolumeUp, "", false, false},
    {"volume down", Qt::Key_VolumeDown, "", false, false},
    {"mute", Qt::Key_VolumeMute, "", false, false},
    {"microphone mute", Qt::Key_MicMute, "", false, false},
    {"play", Qt::Key_MediaPlay, "", false, false},
    {"play and pause", Qt::Key_MediaTogglePlayPause, "", false, false},
    {"next title", Qt::Key_MediaNext, "", false, false},
    {"brighter", Qt::Key_MonBrightnessUp, "", false, false},
    {"the power key", Qt::Key_PowerOff, "", false, false},
    {"sleep", Qt::Key_Sleep, "", false, false},
    {"print screen", Qt::Key_Print, "", false, false},
    {"a key without a meaning", Qt::Key_unknown, "", false, false},
};

TEST(KeyStrokes, TellKeysOfTheProgramFromOthers) {
    for (const KeyRow& row : keys) {
        const QString text = QString::fromUtf8(row.text);
        const QKeyEvent pressed(QEvent::KeyPress, row.key, row.modifiers, text);
        EXPECT_EQ(IsKeyStroke(pressed), row.stroke) << row.name;
        EXPECT_EQ(IsKeyStroke(pressed) && IsPlainKey(pressed), row.plain) << row.name;
        const QKeyEvent held(QEvent::KeyPress, row.key, row.modifiers, text, true);
        EXPECT_FALSE(IsKeyStroke(held)) << row.name << ", held";
    }
}

}  // namespace
}  // namespace zorva::test
