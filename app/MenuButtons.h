#pragma once

#include <QAbstractButton>
#include <array>
#include <functional>

#include "app/PressedLook.h"
#include "app/Services.h"

namespace zorva {

/// Pic_Boton: one key of the menu. It acts as soon as it is pressed, not when it is let go. Its keyboard
/// keys belong to the board, so it never has the focus.
class MenuButton : public QAbstractButton {
public:
    MenuButton(QWidget* parent, const Services& services, int index);

    /// Called when the button is pressed with the left mouse button or by a screen reader. A screen
    /// reader's press waits until no pause of the game is on.
    std::function<void()> Pressed;

    /// Draws the button pressed, before the function returns, or soon afterwards at rest.
    void ShowPressed(bool pressed) { look_.Show(*this, pressed); }
    /// Lets the button glow, or stops that: it invites the player to press it.
    void ShowGlow(bool glows);

    /// The text that explains the button, in Spanish, with a space at both ends as tool tips have it.
    static QString HoverText(int index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    const Services& services_;
    int index_;
    PressedLook look_;
    bool glows_ = false;
};

/// Pic_Botones: the six keys of the menu.
class MenuButtons {
public:
    enum Index { Help, NewGame, Personalize, History, Advice, Leave };
    static_assert(Leave + 1 == MenuButtonCount);

    /// Creates the buttons in the window; `chosen` is called with the index of a button that is pressed.
    MenuButtons(QWidget* window, const Services& services, const std::function<void(int index)>& chosen);

    MenuButton& Button(int index) { return *buttons_[index]; }

    /// Whether a button does something now: over such a button the cursor is a hand.
    std::function<bool(int index)> IsLive;
    /// Shows the cursor that IsLive asks for over each button.
    void RefreshCursors();

    /// Whether a button's explanation is shown when the cursor rests on it.
    void Explain(bool explains);

private:
    const Services& services_;
    std::array<MenuButton*, MenuButtonCount> buttons_{};  // Qt deletes them with the window
};

}  // namespace zorva
