#pragma once

#include <QAbstractButton>
#include <functional>

#include "app/PressedLook.h"
#include "app/Services.h"

namespace zorva {

/// A wooden key on the board window, drawn from two drawings: `drawing` at rest and `drawing` +
/// "_pressed". It acts as soon as it is pressed, not when it is let go. Its keyboard keys belong to the
/// board, so it never has the focus.
class WoodenKey : public QAbstractButton {
public:
    /// `hoverText` explains the key, in Spanish, with a space at both ends as tool tips have it; without
    /// these spaces it is the name for screen readers. The services must outlive the key.
    WoodenKey(QWidget* parent, const Services& services, const QString& drawing,
              const QString& hoverText);

    /// Called when the key is pressed with the left mouse button or by a screen reader. A screen
    /// reader's press waits until no pause of the game is on.
    std::function<void()> Pressed;

    /// Draws the key pressed, before the function returns, or soon afterwards at rest.
    void ShowPressed(bool pressed) { look_.Show(*this, pressed); }
    /// Whether a press does something now: the cursor is a hand then, and a warm light falls on the key
    /// that it is over.
    void ShowLive(bool live);
    /// Draws the key dimmed, or stops that: it belongs to something that is not in use.
    void ShowDimmed(bool dimmed);
    /// Whether the key's explanation is shown when the cursor rests on it.
    void Explain(bool explains);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    const Services& services_;
    const QString drawing_, hoverText_;
    PressedLook look_;
    bool isLive_ = false;
    bool isDimmed_ = false;
};

}  // namespace zorva
