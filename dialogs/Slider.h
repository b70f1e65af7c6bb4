#pragma once

#include <QAbstractSlider>

#include "app/Services.h"

namespace zorva {

/// A scale from 0 to 100, one pixel of the layout for each step, with a marker that is dragged. The
/// drag ends when the cursor leaves the scale's range; the last value in it stays.
class Slider : public QAbstractSlider {
public:
    /// The value 0 lies that many pixels right of the control's left edge; so much is left at 100.
    static constexpr Short EndMargin = 6;
    static constexpr Short Width = 100 + 2 * EndMargin;
    static constexpr Short Height = 18;
    static constexpr Short MarkerWidth = 12;

    Slider(QWidget* parent, const Services& services, const QString& objectName, const QString& name);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QRectF MarkerBox() const;
    QPointF LayoutPoint(const QMouseEvent& event) const;
    void DragTo(double offset);

    const Services& services_;
    bool dragging_ = false;
};

}  // namespace zorva
