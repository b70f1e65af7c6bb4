#include "app/Cursors.h"

#include <QFile>
#include <QTextStream>
#include <QWidget>
#include <QWindow>

#include "app/Artwork.h"

namespace zorva {
namespace {

constexpr int drawingSide = 32;  // of every cursor's drawing, in its own units

}  // namespace

void Cursors::SetScale(double unit, double devicePixelRatio) {
    unit_ = unit;
    ratio_ = devicePixelRatio;
    cursors_.clear();
}

// In units of the drawing. The file has a line for each cursor: its name, x and y.
QPoint Cursors::HotSpotOf(const QString& name) {
    if (hotSpots_.isEmpty()) {
        QFile file(":/cursors/hotspots.txt");
        if (file.open(QFile::ReadOnly)) {
            QTextStream lines(&file);
            QString cursor;
            int x = 0;
            int y = 0;
            while (!(lines >> cursor >> x >> y).atEnd() || !cursor.isEmpty()) {
                hotSpots_.insert(cursor, {x, y});
                cursor.clear();
            }
        }
    }
    return hotSpots_.value(name);
}

QCursor Cursors::Named(const QString& name) {
    const auto known = cursors_.constFind(name);
    if (known != cursors_.constEnd()) return *known;
    const int side = qRound(drawingSide * unit_);
    QPixmap pixmap = artwork_.Pixmap("cursors/" + name, {side, side});
    pixmap.setDevicePixelRatio(ratio_);
    const QPointF hot = QPointF(HotSpotOf(name)) * (unit_ / ratio_);
    QCursor cursor(pixmap, qRound(hot.x()), qRound(hot.y()));
    cursors_.insert(name, cursor);
    return cursor;
}

QCursor Cursors::Die(Colour colour) {
    static constexpr const char* names[] = {"", "DadoAmar", "DadoAzul", "DadoRojo", "DadoVerd"};
    return Named(names[colour]);
}

QCursor Cursors::ClosedHand(Colour colour) {
    static constexpr const char* names[] = {"", "ManoCeAm", "ManoCeAz", "ManoCeRo", "ManoCeVe"};
    return Named(names[colour]);
}

void ShowCursor(QWidget& widget, const QCursor& cursor) {
    // A widget without a cursor of its own answers with its parent's, which may change.
    const bool hasOwn = widget.testAttribute(Qt::WA_SetCursor);
    // A window may show the cursor of one of its controls.
    const bool isShown = !widget.windowHandle() || widget.windowHandle()->cursor() == cursor;
    if (!hasOwn || !isShown || cursor != widget.cursor()) widget.setCursor(cursor);
}

void ShowHand(QWidget& widget, Cursors& cursors, bool live) {
    ShowCursor(widget, live ? cursors.Hand() : QCursor(Qt::ArrowCursor));
}

}  // namespace zorva
