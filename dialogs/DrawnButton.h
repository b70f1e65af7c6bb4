#pragma once

#include <QAbstractButton>

#include "app/Services.h"

namespace zorva {

/// A button that draws itself: the base of all buttons in the windows over the board. Its cursor is a
/// hand, it is repainted when the mouse comes and goes, and Enter presses it as Space does.
class DrawnButton : public QAbstractButton {
public:
    /// `text` is also its name for screen readers. The services must outlive the button.
    DrawnButton(QWidget* parent, const Services& services, const QString& objectName,
                const QString& text);

protected:
    const Services& TheServices() const { return services_; }

    void keyPressEvent(QKeyEvent* event) override;

private:
    const Services& services_;
};

}  // namespace zorva
