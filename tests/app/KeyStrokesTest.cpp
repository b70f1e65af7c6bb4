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
    {"a character made with AltGr", Qt::Key_At, "@", true, true, Qt::GroupSwitchModifier},
    {"the space bar", Qt::Key_Space, " ", true, true},
    {"Enter", Qt::Key_Return, "\r", true, true},
    {"Escape", Qt::Key_Escape, "\x1b", true, true},
    {"the tabulator", Qt::Key_Tab, "\t", true, false},
    {"delete", Qt::Key_Delete, "\x7f", true, false},
    {"a function key", Qt::Key_F1, "", true, false},
    {"a letter with Ctrl", Qt::Key_A, "\x01", true, false, Qt::ControlModifier},
    {"Shift alone", Qt::Key_Shift, "", false, false},
    {"AltGr alone", Qt::Key_AltGr, "", false, false},
    {"volume down", Qt::Key_VolumeDown, "", false, false},
    {"print screen", Qt::Key_Print, "", true, false},
    {"the menu key", Qt::Key_Menu, "", true, false},
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
