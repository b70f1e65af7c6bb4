#pragma once

#include <QAbstractButton>

#include "app/Services.h"

namespace zorva {

/// A button with a drawing of its own in two states, "name" at rest and "name_pressed", and its
/// caption over it. It acts when it was pressed and released inside.
class PictureButton : public QAbstractButton {
public:
    PictureButton(QWidget* parent, const Services& services, const char* objectName,
                  const QString& drawing, const QString& caption);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    const Services& services_;
    const QString drawing_;
};

}  // namespace zorva
