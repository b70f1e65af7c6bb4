#pragma once

#include <QImage>
#include <QPainter>
#include <QRect>
#include <algorithm>

#include "core/Types.h"

namespace zorva {

/// A rectangle of a large picture, to be painted on while others paint beside it. It is in the whole
/// picture's pixels, and the picture has to outlive it.
///
/// What lies outside a canvas costs almost nothing, what a painter's clip leaves out almost as much as
/// what it lets through: a drawing that is seen in parts is painted on a canvas for each.
class Canvas {
public:
    static constexpr auto Format = QImage::Format_RGB32;

    /// The whole picture, which has to be of that format.
    explicit Canvas(QImage& picture)
        : bytes_(picture.bits()), bytesPerLine_(picture.bytesPerLine()), area_(picture.rect()) {
        Require(picture.format() == Format, "a canvas for a picture of another format");
    }

    const QRect& Area() const { return area_; }

    /// As much of that part as lies on this canvas.
    Canvas Within(const QRect& part) const {
        Canvas smaller = *this;
        smaller.area_ = area_ & part;
        if (smaller.area_.isEmpty()) return smaller;
        const QPoint at = smaller.area_.topLeft() - area_.topLeft();
        smaller.bytes_ += at.y() * bytesPerLine_ + at.x() * bytesPerPixel;
        return smaller;
    }

    /// Calls `paint` with a painter for it, unless nothing of it is left.
    template <typename Paint>
    void PaintBy(Paint paint) const {
        if (area_.isEmpty()) return;
        QImage picture(bytes_, area_.width(), area_.height(), bytesPerLine_, Format);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(-area_.topLeft());
        paint(painter);
    }

    /// Copies what is on it to a canvas of the same size.
    void CopyTo(const Canvas& other) const {
        for (int line = 0; line < area_.height(); ++line) {
            std::copy_n(bytes_ + line * bytesPerLine_, area_.width() * bytesPerPixel,
                        other.bytes_ + line * other.bytesPerLine_);
        }
    }

private:
    static constexpr int bytesPerPixel = 4;

    uchar* bytes_;
    qsizetype bytesPerLine_;
    QRect area_;
};

}  // namespace zorva
