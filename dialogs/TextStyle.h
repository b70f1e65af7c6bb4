#pragma once

#include <QFont>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <QTextLayout>

class QPainter;

namespace zorva {

/// How text is set; sizes are pixels of the layout.
struct TextStyle {
    double size = 12;
    QFont::Weight weight = QFont::Normal;
    bool italic = false;
};

/// Text broken into lines. It is set in units much finer than a pixel, so that it breaks at the same
/// words on every screen, and painted by a painter that counts in pixels of the layout. Blanks are
/// kept as they are; a line break in the text begins a new line.
class SetText {
public:
    SetText(const QString& text, double width, const TextStyle& style);

    int LineCount() const { return layout_.lineCount(); }
    /// The width of the widest line, without blanks at its end.
    double WidestLine() const;
    /// From the top of a line to the middle between its tall letters' tops and the tails below.
    double MiddleOfInk() const;

    /// Draws the lines in the painter's pen, their tops `pitch` apart, the first at `top`.
    void Draw(QPainter& painter, QPointF top, double pitch) const;

private:
    QTextLayout layout_;
};

/// The width of a text on one line.
double WidthOf(const QString& text, const TextStyle& style);

/// Draws one line into the middle of the box's height, aligned left, right or in its middle. Text too
/// wide for the box is made smaller rather than cut.
void DrawLine(QPainter& painter, const QRectF& box, const QString& text, TextStyle style,
              Qt::Alignment alignment = Qt::AlignLeft);

/// Draws one line whose blanks have that width each: for texts that place their words by runs of
/// blanks. The line's letters stand as DrawLine would set them, from the box's left edge.
void DrawSpaced(QPainter& painter, const QRectF& box, const QString& text, const TextStyle& style,
                double blankWidth);

/// The width that blanks must have for such a line to be `width` wide.
double BlankWidthFor(const QString& text, const TextStyle& style, double width);

}  // namespace zorva
