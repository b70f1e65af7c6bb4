#pragma once

#include <QAbstractButton>
#include <array>
#include <functional>

#include "app/Services.h"

namespace zorva {

/// Pic_Boton: one key of the menu. It acts when it is pressed, by the mouse or by a screen reader.
class MenuButton : public QAbstractButton {
public:
    MenuButton(QWidget* parent, const Services& services, int index);

    /// Called when the button is pressed.
    std::function<void()> Pressed;

    /// Draws the button pressed or not, at once.
    void ShowPressed(bool pressed);
    /// Lets the button glow, or stops it.
    void ShowGlow(bool glows);

    /// The text that explains the button.
    static QString HoverText(int index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    const Services& services_;
    int index_;
    bool pressed_ = false;
    bool glows_ = false;
};

/// Pic_Botones: the six keys of the menu.
class MenuButtons {
public:
    enum Index { Help, NewGame, Personalize, History, Advice, Leave };
    static_assert(Leave + 1 == MenuButtonCount);

    MenuButtons(QWidget* window, const Services& services, const std::function<void(int index)>& chosen);

    MenuButton& Button(int index) { return *buttons_[index]; }

    /// Shows the button's explanation when the cursor rests on it, or does not.
    void Explain(bool explains);

private:
    std::array<MenuButton*, MenuButtonCount> buttons_;  // owned by the window
};

}  // namespace zorva
