#pragma once

#include <QWidget>

#include "app/Services.h"

namespace zorva {

/// Pic_Grabadora: the strip of the move recorder with its six keys. The drawing is a sheet whose left
/// half shows the keys at rest and whose right half, 51 pixels further, shows them pressed.
class RecorderStrip : public QWidget {
public:
    RecorderStrip(QWidget* parent, const Services& services);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Services& services_;
};

}  // namespace zorva
