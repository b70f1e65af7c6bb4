#include "dialogs/DrawnButton.h"

#include <QKeyEvent>

#include "app/Cursors.h"
#include "app/KeyStrokes.h"

namespace zorva {

DrawnButton::DrawnButton(QWidget* parent, const Services& services, const QString& objectName,
                         const QString& text)
    : QAbstractButton(parent), services_(services) {
    setObjectName(objectName);
    setText(text);
    setAccessibleName(text);
    setCursor(services.cursors.Hand());
    setAttribute(Qt::WA_Hover);
}

// In Qt only Space presses a button; Enter is for the default button of a dialog, which these windows
// have not.
void DrawnButton::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && IsKeyStroke(*event)) {
        click();
    } else {
        QAbstractButton::keyPressEvent(event);
    }
}

}  // namespace zorva
