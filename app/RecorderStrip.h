#pragma once

#include <QAbstractButton>
#include <QWidget>
#include <array>
#include <functional>
#include <optional>

#include "app/PressedLook.h"
#include "app/Services.h"

namespace zorva {

/// The six keys of the recorder, in the order in which a click is tested against them.
enum class RecorderKey { OnOff, BackOne, ForwardOne, AutoBack, AutoForward, Restore };

/// Pic_Grabadora: the strip of the move recorder with its six keys, 50 x 75 layout pixels. The drawing
/// is a sheet whose left half shows the keys at rest and whose right half, 51 units further, shows them
/// pressed.
class RecorderStrip : public QWidget {
public:
    RecorderStrip(QWidget* parent, const Services& services);

    /// A key was pressed with the mouse or by a screen reader, whether or not it does something now.
    std::function<void(RecorderKey key)> Pressed;
    /// Whether a key does something now: over such a key the cursor is a hand.
    std::function<bool(RecorderKey key)> IsLive;

    /// Shows the cursor that IsLive asks for where the mouse is now, and a warm light on a live key
    /// there.
    void RefreshCursor();

    /// Draws a key pressed, before the function returns, or soon afterwards at rest.
    void ShowPressed(RecorderKey key, bool pressed);
    /// Whether a key's explanation is shown when the cursor rests on it.
    void Explain(bool explains);

    /// The text that explains a key, in Spanish, with a space at both ends as tool tips have it.
    static QString HoverText(RecorderKey key);
    /// Where a key can be clicked, in layout pixels from the strip's corner.
    static Box KeyBox(RecorderKey key);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent*) override { RefreshCursor(); }
    void resizeEvent(QResizeEvent* event) override;

private:
    // A key for screen readers. It draws nothing and lets the mouse through: the strip does both.
    class KeyButton : public QAbstractButton {
    public:
        using QAbstractButton::QAbstractButton;

    protected:
        void paintEvent(QPaintEvent*) override {}
    };

    Point StripPoint(QPointF position) const;

    const Services& services_;
    std::array<KeyButton*, RecorderKeyCount> keyButtons_{};  // Qt deletes them with the strip
    std::array<PressedLook, RecorderKeyCount> looks_;
    std::optional<RecorderKey> lit_;  // the live key under the cursor
    bool explains_ = true;
};

}  // namespace zorva
