#pragma once

#include <QCursor>
#include <QHash>
#include <QString>

#include "core/Types.h"

namespace zorva {

class Artwork;

/// The cursors of the program, drawn at the size that fits the screen.
class Cursors {
public:
    explicit Cursors(Artwork& artwork) : artwork_(artwork) {}

    /// The cursor of that name ("ManoIndice", "DadoAmar", ...).
    QCursor Named(const QString& name);

    /// The pointing hand over whatever can be clicked.
    QCursor Hand() { return Named("ManoIndice"); }
    /// The die in a colour, while its throw is awaited.
    QCursor Die(Colour colour);
    /// The closed hand in a colour, over a piece of it that may be moved.
    QCursor ClosedHand(Colour colour);

    /// Sets the scale: device pixels per pixel of the layout, and of these per pixel of Qt.
    void SetScale(double unit, double devicePixelRatio);

private:
    QPoint HotSpotOf(const QString& name);

    Artwork& artwork_;
    double unit_ = 1;
    double ratio_ = 1;
    QHash<QString, QCursor> cursors_;
    QHash<QString, QPoint> hotSpots_;
};

}  // namespace zorva
