#pragma once

#include <array>
#include <functional>

#include "app/RecorderStrip.h"
#include "app/WoodenKey.h"

namespace zorva {

/// Pic_Mando: the recorder's six keys once more, large, where there is room for them. The switch is a
/// reel of the recorder, the others are there while it is on. What is between them belongs to the board.
/// Screen readers have the keys of the RecorderStrip instead.
class LargeKeys {
public:
    /// Creates the keys in the window; `chosen` is called with a key that is pressed, live or not.
    LargeKeys(QWidget* window, const Services& services,
              const std::function<void(RecorderKey key)>& chosen);

    WoodenKey& Key(RecorderKey key) { return *keys_[static_cast<int>(key)]; }

    /// Shows the switch and, while the recorder is on, the others, where there is room for them. Those
    /// that do nothing now are dimmed; the switch, which would flicker with every turn, is not.
    void Refresh(const std::function<bool(RecorderKey key)>& isLive, bool isOn);

    /// Whether a key's explanation, which names its keys of the keyboard, is shown when the cursor rests
    /// on it.
    void Explain(bool explains);

private:
    const Services& services_;
    std::array<WoodenKey*, RecorderKeyCount> keys_{};  // Qt deletes them with the window
};

}  // namespace zorva
