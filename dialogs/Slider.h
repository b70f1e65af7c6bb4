#pragma once

#include <QAbstractSlider>

#include "app/Services.h"

namespace zorva {

/// A slider from 0 to 100, one layout pixel a step. The player drags its marker. The drag ends when the
/// cursor goes beyond either end, and the last value before that stays; a click beside the marker does
/// nothing. Left and Right change the value by 1, Page Up and Page Down by 10, Home and End set it to 0
/// and 100; Up and Down move the focus.
class Slider : public QAbstractSlider {
public:
    // In layout pixels.
    static constexpr Short EndMargin = 6;  ///< from the left edge to the value 0, from 100 to the right
    static constexpr Short Width = 100 + 2 * EndMargin;
    static constexpr Short Height = 18;
    static constexpr Short MarkerWidth = 12;  ///< the marker is as high as the slider

    /// `name` is its name for screen readers. It has to be placed in a box of Width x Height. The
    /// services must outlive it.
    Slider(QWidget* parent, const Services& services, const QString& objectName, const QString& name);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QRectF MarkerBox() const;
    bool IsOnMarker(QPointF point) const;  // in layout pixels
    QPointF LayoutPoint(const QMouseEvent& event) const;
    void Light(bool lit);
    void DragTo(double value);

    const Services& services_;
    bool dragging_ = false;
    bool isLit_ = false;  // the marker, which the cursor is over
};

}  // namespace zorva
