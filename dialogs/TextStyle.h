#pragma once

#include <QFont>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <QTextLayout>

class QPainter;

namespace zorva {

// Text is laid out in units of a sixteenth of a layout pixel and then scaled to the screen. A font's
// size is a whole number of the units it is laid out in: with larger units a text would have other
// widths, and break at other words, on each screen. All measures here are layout pixels.

/// How a text looks.
struct TextStyle {
    double size = 12;  ///< of the font
    QFont::Weight weight = QFont::Normal;
    bool italic = false;
    bool display = false;  ///< in the font of names and headlines, which is always bold
};

constexpr TextStyle Headline(double size) {
    return {.size = size, .display = true};
}

/// A text wrapped into lines of a given width. Runs of blanks are kept as they are, a line feed begins a
/// new line, and a word wider than a line is broken anywhere.
class WrappedText {
public:
    WrappedText(const QString& text, double width, const TextStyle& style);

    int LineCount() const { return layout_.lineCount(); }
    /// From the top of a line down to the middle of its ink, which reaches from the top of a "d" to the
    /// foot of a "g". Text centred by it looks centred.
    double MiddleOfInk() const;

    /// Draws the lines with the painter's pen, the top of the first at `top`, the tops of the others
    /// `pitch` apart.
    void Draw(QPainter& painter, QPointF top, double pitch) const;

private:
    QTextLayout layout_;
};

/// The width of a text on one line.
double WidthOf(const QString& text, const TextStyle& style);

/// Draws one line with the painter's pen, at half the height of the box, aligned left, right or to its
/// middle. A text too wide for the box gets a smaller font, down to 9 pixels; then its end is cut off.
void DrawLine(QPainter& painter, const QRectF& box, const QString& text, TextStyle style,
              Qt::Alignment alignment = Qt::AlignLeft);

/// Draws one line as DrawLine does, from the left edge of the box, but with every blank `blankWidth`
/// wide: for texts that place their words by runs of blanks.
void DrawSpaced(QPainter& painter, const QRectF& box, const QString& text, const TextStyle& style,
                double blankWidth);

/// The width of a blank that makes the line `width` wide when DrawSpaced draws it. The text must contain
/// a blank.
double BlankWidthFor(const QString& text, const TextStyle& style, double width);

}  // namespace zorva
