#pragma once

#include "app/PressedLook.h"
#include "dialogs/DrawnButton.h"

namespace zorva {

/// A button drawn from two drawings of the program: `drawing` at rest and `drawing` + "_pressed". Its
/// caption stands right of the emblem that each of them has at its left. It acts when it was pressed and
/// released inside, or by Space or Enter, has a warm light while the cursor is over it, and is seen
/// pressed as long as PressedLook says, unless its window closes.
class PictureButton : public DrawnButton {
public:
    /// `caption` is also its name for screen readers. The services must outlive the button.
    PictureButton(QWidget* parent, const Services& services, const char* objectName,
                  const QString& drawing, const QString& caption);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const QString drawing_;
    PressedLook look_;
};

}  // namespace zorva
