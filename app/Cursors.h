#pragma once

#include <QCursor>
#include <QHash>
#include <QString>

#include "core/Types.h"

class QWidget;

namespace zorva {

class Artwork;

/// The cursors of the program, drawn at the size that fits the screen: 32 layout pixels. Each is made
/// once and kept until the scale changes.
class Cursors {
public:
    explicit Cursors(Artwork& artwork) : artwork_(artwork) {}

    /// The cursor that assets/cursors has under that name ("ManoIndice", "DadoAmar", ...).
    QCursor Named(const QString& name);

    /// The pointing hand, shown over everything that a click acts on.
    QCursor Hand() { return Named("ManoIndice"); }
    /// The die in a colour 1..4, while the game waits for its throw.
    QCursor Die(Colour colour);
    /// The closed hand in a colour 1..4, over a piece of it that may be moved.
    QCursor ClosedHand(Colour colour);

    /// Sets the scale: `unit` device pixels are one layout pixel, `devicePixelRatio` one logical pixel
    /// of Qt. Forgets the cursors of the old scale.
    void SetScale(double unit, double devicePixelRatio);

private:
    QPoint HotSpotOf(const QString& name);

    Artwork& artwork_;
    double unit_ = 1;
    double ratio_ = 1;
    QHash<QString, QCursor> cursors_;
    QHash<QString, QPoint> hotSpots_;
};

/// Gives a widget that cursor. The same cursor again would be another request to the window system.
void ShowCursor(QWidget& widget, const QCursor& cursor);

/// Shows the pointing hand over a widget that a click acts on, the arrow over one that is not `live`.
void ShowHand(QWidget& widget, Cursors& cursors, bool live);

}  // namespace zorva
