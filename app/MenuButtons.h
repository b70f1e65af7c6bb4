#pragma once

#include <array>
#include <functional>

#include "app/WoodenKey.h"

namespace zorva {

/// Pic_Botones: the six keys of the menu, Pic_Boton_0 to 5.
class MenuButtons {
public:
    enum Index { Help, NewGame, Personalize, History, Advice, Leave };
    static_assert(Leave + 1 == MenuButtonCount);

    /// Creates the buttons in the window; `chosen` is called with the index of a button that is pressed.
    MenuButtons(QWidget* window, const Services& services, const std::function<void(int index)>& chosen);

    WoodenKey& Button(int index) { return *buttons_[index]; }

    /// Whether a button does something now.
    std::function<bool(int index)> IsLive;
    /// Shows what IsLive says of each button.
    void Refresh();

    /// Whether a button's explanation is shown when the cursor rests on it.
    void Explain(bool explains);

    /// The text that explains a button, as WoodenKey has it.
    static QString HoverText(int index);
    /// Its short name, which stands below it where there is room.
    static QString Name(int index);

private:
    std::array<WoodenKey*, MenuButtonCount> buttons_{};  // Qt deletes them with the window
};

}  // namespace zorva
